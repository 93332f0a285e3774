// What the program asks of its main window. Rows are the wallpaper list's indexes.
#pragma once

#include "uSettings.h"

#include <string>
#include <vector>

namespace murala
{

class TMainView
{
public:
    virtual ~TMainView() = default;

    // A message box, waiting for the user.
    virtual void ShowMessage(const std::string& text) = 0;
    virtual void SetStatus(const std::string& text) = 0;
    // Long work: `position` of `range`; a range of 0 ends it.
    virtual void ShowProgress(int position, int range) = 0;
    // The hourglass, nested.
    virtual void SetBusy(bool busy) = 0;

    // The first selected row (the focused one when it is selected), -1 when there is none.
    virtual int SelectedRow() = 0;
    // Ascending.
    virtual std::vector<int> SelectedRows() = 0;
    // Makes it the only selected row and scrolls it into view; -1 clears the selection.
    virtual void SelectRow(int row) = 0;
    // Rows came, went or changed places.
    virtual void RowsChanged() = 0;
    virtual void RowChanged(int row) = 0;

    // The selected item's values changed: the settings pages show them again.
    virtual void ItemChanged() = 0;
    // The preview is out of date and is to be made again soon; `loadPicture`: another picture.
    virtual void PreviewChanged(bool loadPicture) = 0;
    // The picture on the desktop changed.
    virtual void WallpaperChanged() = 0;

    virtual bool IsWindowVisible() = 0;
    // Disabled, the window takes no input.
    virtual void EnableWindow(bool enable) = 0;
    virtual void MinimiseWindow() = 0;
    virtual TPlacement NormalPlacement() = 0;
};

// The hourglass for the time of a scope.
class TBusyScope
{
public:
    explicit TBusyScope(TMainView& view) : m_view(view) { m_view.SetBusy(true); }
    TBusyScope(const TBusyScope&) = delete;
    TBusyScope& operator=(const TBusyScope&) = delete;
    ~TBusyScope() { m_view.SetBusy(false); }

private:
    TMainView& m_view;
};

} // namespace murala
