#include "uTrayIcon.h"

#include <windows.h>

#include <shellapi.h>

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

using namespace murala;

namespace
{

struct TTestEvents : TTrayEvents {
    std::vector<std::string> Told;
    void TrayLeftClick() override { Told.emplace_back("left"); }
    void TrayRightClick(TPoint) override { Told.emplace_back("right"); }
    void TrayMenuOpens() override {}
    void TrayMenuChosen(const TMenuTarget&) override {}
    void TrayAreaChanged() override {}
};

TTrayLook Look(const std::string& hint)
{
    auto image = std::make_shared<TIconImage>();
    image->emplace_back(16, 16);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            image->front().Row(y)[x] = 0xFF3366CC;
    return {hint, image};
}

// The shell's tray. It is sent what programs give to the system's library, in Wine's form of it.
class TFakeShell
{
public:
    struct TRecord {
        DWORD Window, Id, Flags, Callback;
        std::array<wchar_t, 128> Tip;
    };
    std::vector<DWORD> Messages;
    TRecord Record{};
    bool HasIcon = false;
    bool IsLate = false; // what it does it does not tell in time

    TFakeShell()
    {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = OnMessage;
        windowClass.lpszClassName = "Shell_TrayWnd";
        RegisterClassA(&windowClass);
        // Above the real one.
        m_window = CreateWindowExA(WS_EX_TOPMOST, "Shell_TrayWnd", "", WS_POPUP, 0, 0, 1, 1,
                                   nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrA(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    TFakeShell(const TFakeShell&) = delete;
    TFakeShell& operator=(const TFakeShell&) = delete;
    ~TFakeShell() { DestroyWindow(m_window); }

private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* self = reinterpret_cast<TFakeShell*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        if (message != WM_COPYDATA || self == nullptr)
            return DefWindowProcA(window, message, wParam, lParam);
        const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        const auto what = static_cast<DWORD>(data.dwData);
        self->Messages.push_back(what);
        EXPECT_GE(data.cbData, sizeof(TRecord));
        std::memcpy(&self->Record, data.lpData, sizeof(TRecord));
        const bool isKnown = self->HasIcon;
        self->HasIcon = what != NIM_DELETE && (isKnown || what == NIM_ADD);
        return what == NIM_ADD ? !isKnown && !self->IsLate : isKnown;
    }

    HWND m_window;
};

HWND OwnWindow()
{
    return FindWindowA("TMuTrayIcon", nullptr);
}

} // namespace

TEST(TrayArea, ItsWindowLetsTheSessionEndAndTellsOfSingleClicksOnly)
{
    const auto area = NewTrayArea();
    TTestEvents events;
    area->Listen(&events);
    const HWND window = OwnWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(SendMessageA(window, WM_QUERYENDSESSION, 0, 0), 1);
    for (const LPARAM mouse : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP,
                               WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MBUTTONUP, WM_MOUSEMOVE})
        SendMessageA(window, 1026, 1, mouse);
    EXPECT_EQ(events.Told, (std::vector<std::string>{"left", "left", "right"}));
    area->Listen(nullptr);
    SendMessageA(window, 1026, 1, WM_LBUTTONUP);
    EXPECT_EQ(events.Told.size(), 3U);
}

TEST(TrayArea, ItsWindowGoesWithIt)
{
    NewTrayArea();
    EXPECT_EQ(OwnWindow(), nullptr);
}

TEST(TrayArea, TheShellIsSentTheIconAndALostOneIsNoticed)
{
    const auto area = NewTrayArea();
    EXPECT_EQ(area->State(), TTrayState::There);
    {
        TFakeShell shell;
        EXPECT_FALSE(area->Modify(Look("before")));
        EXPECT_TRUE(area->Add(Look("Murala (C:\\Pictures\\a.bmp)")));
        EXPECT_TRUE(area->Add(Look("twice"))) << "it is there";
        // 63 bytes fit, and the last character would be cut.
        EXPECT_TRUE(area->Modify(Look(std::string(62, 'x') + "\xC3\xA4y")));
        EXPECT_EQ(shell.Messages,
                  (std::vector<DWORD>{NIM_MODIFY, NIM_ADD, NIM_ADD, NIM_MODIFY, NIM_MODIFY}));
        EXPECT_EQ(shell.Record.Window,
                  static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(OwnWindow())));
        EXPECT_EQ(shell.Record.Id, 1U);
        EXPECT_EQ(shell.Record.Flags & 7U, 7U);
        EXPECT_EQ(shell.Record.Callback, 1026U);
        EXPECT_EQ(std::wstring(shell.Record.Tip.data()), std::wstring(62, L'x'));
        EXPECT_TRUE(area->Modify(Look(std::string(61, 'x') + "\xC3\xA4y")));
        EXPECT_EQ(std::wstring(shell.Record.Tip.data()), std::wstring(61, L'x') + L'\xE4');
    }
    TFakeShell restarted;
    restarted.IsLate = true;
    EXPECT_FALSE(area->Modify(Look("lost")));
    EXPECT_TRUE(area->Add(Look("Salt & Pepper")));
    EXPECT_EQ(std::wstring(restarted.Record.Tip.data()), L"Salt + Pepper");
    area->Remove();
    EXPECT_EQ(restarted.Messages.back(), static_cast<DWORD>(NIM_DELETE));
}
