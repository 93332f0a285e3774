// The real main window on services that remember.
#pragma once

#include "FakeServices.h"
#include "uMain.h"
#include "uPath.h"
#include "uTempFolder.h"
#include "uTestPictures.h"
#include "uToolkitDoor.h"

#include <chrono>
#include <memory>

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/slider.h>

namespace murala
{

// Answers message boxes and remembers their texts.
class TMessages : public wxModalDialogHook
{
public:
    std::vector<std::string> Texts;
    bool AreShown = false; // dialogs come up for real
    std::function<void()> OnMessage;
    TMessages() { Register(); }
    ~TMessages() override { Unregister(); }

private:
    int Enter(wxDialog* dialog) override
    {
        if (AreShown)
            return wxID_NONE;
        const auto* box = dynamic_cast<wxMessageDialogBase*>(dialog);
        if (OnMessage)
            OnMessage();
        Texts.push_back(box != nullptr ? box->GetMessage().utf8_string() : "another dialog");
        return wxID_OK;
    }
};

struct TNoLink : TInstanceLink {
    std::function<void()> Wake;
    bool IsRunning() override { return false; }
    bool PostWake() override { return false; }
    void Lock() override {}
    void Unlock() override {}
    void Listen(void*, std::function<void()> onWake) override { Wake = std::move(onWake); }
};

template<typename TControl>
TControl& Find(wxWindow& parent, const char* name)
{
    auto* control = dynamic_cast<TControl*>(wxWindow::FindWindowByName(name, &parent));
    if (control == nullptr)
        throw std::runtime_error(std::string("no control ") + name);
    return *control;
}

inline void Send(wxWindow& control, wxEventType type, int value = 0)
{
    wxCommandEvent event(type, control.GetId());
    event.SetEventObject(&control);
    event.SetInt(value);
    control.ProcessWindowEvent(event);
}

inline void Slide(wxWindow& parent, const char* name, int value)
{
    auto& bar = Find<wxSlider>(parent, name);
    bar.SetValue(value);
    Send(bar, wxEVT_SLIDER, value);
}

inline void Press(wxWindow& parent, const char* name)
{
    Send(Find<wxWindow>(parent, name), wxEVT_BUTTON);
}

inline void Mouse(wxWindow& window, wxEventType type, int x, int y)
{
    wxMouseEvent event(type);
    event.SetEventObject(&window);
    event.SetX(x);
    event.SetY(y);
    event.SetLeftDown(type != wxEVT_LEFT_UP);
    window.ProcessWindowEvent(event);
}

class TMainFixture : public testing::Test
{
protected:
    TMainFixture()
    {
        m_services.ProgramFolder = WithTrailingDivider(m_folder.Path());
        m_services.RealDoor = &m_door;
        m_services.Desktop.Screen = {320, 200};
    }
    ~TMainFixture() override { Close(); }

    void Start(const std::vector<std::string>& arguments = {})
    {
        m_main = new TfMain(m_services.Services(), m_link);
        m_main->Activate(arguments);
        // The last page is made when the window has been on the screen.
        const auto isComplete = [this] { return wxWindow::FindWindowByName("clbAddOns", m_main); };
        if (PumpUntil([this] { return m_main->IsShown(); }))
            PumpUntil(isComplete);
        Pump(100);
    }

    void Close()
    {
        if (m_main != nullptr)
            m_main->Close();
        m_main = nullptr;
        Pump(50);
    }

    static bool PumpUntil(const std::function<bool()>& condition, int milliseconds = 5000)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
        wxEventLoop loop;
        const wxEventLoopActivator activator(&loop);
        while (!condition() && std::chrono::steady_clock::now() < end) {
            wxTheApp->ProcessPendingEvents();
            loop.DispatchTimeout(5);
            loop.ProcessIdle();
        }
        return condition();
    }
    static void Pump(int milliseconds)
    {
        PumpUntil([] { return false; }, milliseconds);
    }

    // Runs the script once a dialog of that name waits for the user; it ends the dialog.
    void InDialog(const std::string& name, std::function<void(wxDialog&)> script)
    {
        m_messages.AreShown = true;
        auto timer = std::make_shared<wxTimer>();
        m_timers.push_back(timer);
        timer->Bind(wxEVT_TIMER, [this, name, script = std::move(script),
                                  timer = timer.get()](wxTimerEvent&) {
            for (wxWindow* window : wxTopLevelWindows) {
                auto* dialog = dynamic_cast<wxDialog*>(window);
                if (dialog == nullptr || dialog->GetName() != name || !dialog->IsModal())
                    continue;
                timer->Stop();
                m_scriptsRun++;
                dialog->SetReturnCode(0);
                script(*dialog);
                if (dialog->GetReturnCode() == 0)
                    dialog->EndModal(wxID_CANCEL);
                return;
            }
        });
        timer->Start(50);
    }
    void Execute(TActionId action)
    {
        m_main->Actions().Execute(action);
        m_messages.AreShown = false;
    }

    template<typename TControl>
    TControl& Control(const char* name)
    {
        return Find<TControl>(*m_main, name);
    }
    TMurala& Murala() { return m_main->Murala(); }
    const TAction& Action(TActionId id) { return m_main->Actions()[id]; }

    TMuListView& List() { return dynamic_cast<TMuListView&>(Control<wxWindow>("lvWallpaper")); }

    std::string Picture(const std::string& name, int width, int height, TColor color)
    {
        return SavePicture(m_services.ProgramFolder + name, width, height, color);
    }

    // Small black ones.
    void AddPictures(const std::vector<std::string>& names)
    {
        std::vector<std::string> files;
        for (const std::string& name : names)
            files.push_back(Picture(name, 4, 4, 0));
        Murala().Desk.AddFiles(files);
    }
    void AddTwo()
    {
        Murala().Desk.AddFiles({Picture("Rot.bmp", 40, 30, 0x0000FF),
                                Picture("Gr\xC3\xBCn, 'quoted'.bmp", 40, 30, 0x00FF00)});
    }

    void Select(int row)
    {
        Murala().Core.Selection.Select(&Murala().Core.List.Item(row));
        Pump(20);
    }

    TToolkitDoor m_door;
    TTempFolder m_folder;
    TFakeServices m_services;
    TNoLink m_link;
    TMessages m_messages;
    TfMain* m_main = nullptr;
    int m_scriptsRun = 0;
    std::vector<std::shared_ptr<wxTimer>> m_timers;
};

} // namespace murala
