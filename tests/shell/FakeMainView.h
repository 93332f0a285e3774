// A main window that only remembers. What waits for the user lets messages through, as the real one
// does: `OnMessage` is run while a message box stands.
#pragma once

#include "uMainView.h"

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

    void ShowMessage(const std::string& text) override
    {
        Messages.push_back(text);
        BusyInMessage = BusyInMessage || Busy > 0;
        if (OnMessage)
            OnMessage();
    }
    void SetStatus(const std::string& text) override { Status = text; }
    void ShowProgress(int, int) override {}
    void SetBusy(bool busy) override { Busy += busy ? 1 : -1; }
    void EnableWindow(bool enable) override { Disabled += enable ? -1 : 1; }
    bool IsWindowVisible() override { return Visible; }
    void MinimiseWindow() override { Visible = false; }
    TPlacement NormalPlacement() override { return {}; }

    bool BusyInMessage = false;
};

} // namespace murala
