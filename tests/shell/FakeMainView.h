// A main window that only remembers.
#pragma once

#include "uMainView.h"

namespace murala
{

struct TFakeMainView : TMainView {
    std::vector<std::string> Messages;
    std::string Status;
    std::vector<int> Selection;
    int Busy = 0;
    bool Visible = true;
    bool Enabled = true;
    int WallpaperChanges = 0;

    void ShowMessage(const std::string& text) override { Messages.push_back(text); }
    void SetStatus(const std::string& text) override { Status = text; }
    void ShowProgress(int, int) override {}
    void SetBusy(bool busy) override { Busy += busy ? 1 : -1; }
    int SelectedRow() override { return Selection.empty() ? -1 : Selection.front(); }
    std::vector<int> SelectedRows() override { return Selection; }
    void SelectRow(int row) override
    {
        Selection = row >= 0 ? std::vector<int>{row} : std::vector<int>{};
    }
    void RowsChanged() override { Selection.clear(); }
    void RowChanged(int) override {}
    void ItemChanged() override {}
    void PreviewChanged(bool) override {}
    void WallpaperChanged() override { ++WallpaperChanges; }
    bool IsWindowVisible() override { return Visible; }
    void EnableWindow(bool enable) override { Enabled = enable; }
    void MinimiseWindow() override { Visible = false; }
    TPlacement NormalPlacement() override { return {}; }
};

} // namespace murala
