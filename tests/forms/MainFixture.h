// The real main window on services that remember.
#pragma once

#include "FakeServices.h"
#include "uMain.h"
#include "uPath.h"
#include "uTempFolder.h"
#include "uTestPictures.h"

#include <chrono>

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>

namespace murala
{

// Answers message boxes and remembers their texts.
class TMessages : public wxModalDialogHook
{
public:
    std::vector<std::string> Texts;
    bool AreShown = false; // dialogs come up for real
    TMessages() { Register(); }
    ~TMessages() override { Unregister(); }

private:
    int Enter(wxDialog* dialog) override
    {
        if (AreShown)
            return wxID_NONE;
        const auto* box = dynamic_cast<wxMessageDialogBase*>(dialog);
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

class TMainFixture : public testing::Test
{
protected:
    TMainFixture()
    {
        m_services.ProgramFolder = WithTrailingDivider(m_folder.Path());
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

    template<typename TControl>
    TControl& Control(const char* name)
    {
        auto* control = dynamic_cast<TControl*>(wxWindow::FindWindowByName(name, m_main));
        if (control == nullptr)
            throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }

    TMuListView& List() { return dynamic_cast<TMuListView&>(Control<wxWindow>("lvWallpaper")); }

    std::string Picture(const std::string& name, int width, int height, TColor color)
    {
        return SavePicture(m_services.ProgramFolder + name, width, height, color);
    }

    void AddTwo()
    {
        m_main->Murala().Desk.AddFiles({Picture("Rot.bmp", 40, 30, 0x0000FF),
                                        Picture("Gr\xC3\xBCn, 'quoted'.bmp", 40, 30, 0x00FF00)});
    }

    void Select(int row)
    {
        m_main->Murala().Core.Selection.Select(&m_main->Murala().Core.List.Item(row));
        Pump(20);
    }

    TTempFolder m_folder;
    TFakeServices m_services;
    TNoLink m_link;
    TMessages m_messages;
    TfMain* m_main = nullptr;
};

} // namespace murala
