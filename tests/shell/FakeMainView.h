// A main window that only remembers. What waits for the user lets messages through, as the real one
// does: `OnMessage` is run while a message box stands.
#pragma once

#include "uMainView.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace murala
{

struct TFakeMainView : TMainView {
    std::vector<std::string> Messages;
    std::function<void()> OnMessage;
    std::string Status;
    int Busy = 0;
    int Disabled = 0;
    bool Visible = true;
    int WorkEndsAt = 1 << 30; // where the user ends long work
    std::string WorkText;

    void ShowMessage(const std::string& text) override
    {
        Messages.push_back(text);
        BusyInMessage = BusyInMessage || Busy > 0;
        if (OnMessage)
            OnMessage();
    }
    void SetStatus(const std::string& text) override { Status = text; }
    std::unique_ptr<TLongWork> BeginWork(int) override
    {
        struct TWork : TLongWork {
            explicit TWork(TFakeMainView& view) : View(view) {}
            bool Step(int position, const std::string& text) override
            {
                View.WorkText = text;
                return position < View.WorkEndsAt;
            }
            void Finish(const std::string& text) override { View.WorkText = text; }
            TFakeMainView& View;
        };
        return std::make_unique<TWork>(*this);
    }
    void SetBusy(bool busy) override { Busy += busy ? 1 : -1; }
    void EnableWindow(bool enable) override { Disabled += enable ? -1 : 1; }
    bool IsWindowVisible() override { return Visible; }
    void MinimiseWindow() override { Visible = false; }
    TPlacement NormalPlacement() override { return Placement; }
    int PreviewWidth(TSize) override { return 20; }
    void ShowPreview(const TBitmap& picture) override
    {
        Preview = TBitmap(picture.Width(), picture.Height());
        for (int y = 0; y < picture.Height(); ++y)
            std::copy_n(picture.Row(y), picture.Width(), Preview.Row(y));
        PreviewText.clear();
    }
    void ShowPreviewText(const std::string& text) override
    {
        Preview = {};
        PreviewText = text;
    }
    void WakePreview(int milliseconds) override { PreviewWait = milliseconds; }

    TPlacement Placement{0, 0, 0, 0};
    TBitmap Preview;
    std::string PreviewText;
    int PreviewWait = 0; // 0: nothing is waited for

    bool BusyInMessage = false;
};

} // namespace murala
