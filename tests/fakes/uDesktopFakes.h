// A desktop that remembers what it was asked, in the place of the system's.
#pragma once

#include "uClock.h"
#include "uDesktop.h"
#include "uLauncher.h"
#include "uLocale.h"
#include "uMessageLoop.h"
#include "uPath.h"
#include "uRegistry.h"
#include "uScreenSaver.h"
#include "uShellWindows.h"
#include "uSiblings.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace murala
{

struct TFakeDesktop : TDesktop {
    TSize Screen{64, 36};
    bool TakesWallpaper = true;
    std::vector<std::string> Calls;
    TColor Color = 0;

    TSize ScreenSize() override { return Screen; }
    int ScreenBitsPerPixel() override { return 32; }
    bool SetWallpaperFile(const std::string& path) override
    {
        Calls.push_back("wallpaper " + FileNamePart(path));
        return TakesWallpaper;
    }
    void StoreTileFlag(const std::string& text) override { Calls.push_back("tile " + text); }
    void StoreDesktopColorText(const std::string& text) override
    {
        Calls.push_back("colour text " + text);
    }
    void SetDesktopColor(TColor color) override
    {
        Calls.push_back("colour " + std::to_string(color));
        Color = color;
    }
    TColor DesktopColor() override { return Color; }
};

struct TFakeLocale : TLocale {
    int Compare(const std::string& a, const std::string& b) override { return a.compare(b); }
    std::string UpperCase(const std::string& text) override
    {
        std::string upper = text;
        for (char& c : upper)
            c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        return upper;
    }
};

struct TFakeClock : TClock {
    TDateTime Time = 46000.5;
    TDateTime Now() override { return Time; }
};

struct TFakeRegistry : TRegistry {
    std::map<std::pair<TRoot, std::string>, std::map<std::string, std::string>> Keys;
    std::set<TRoot> Refused; // roots that may not be written

    bool KeyExists(TRoot root, const std::string& key) override
    {
        return Keys.contains({root, key});
    }
    std::optional<std::string> ReadText(TRoot root, const std::string& key,
                                        const std::string& name) override
    {
        const auto values = Keys.find({root, key});
        if (values == Keys.end() || !values->second.contains(name))
            return std::nullopt;
        return values->second.at(name);
    }
    bool WriteText(TRoot root, const std::string& key, const std::string& name,
                   const std::string& text) override
    {
        if (Refused.contains(root))
            return false;
        Keys[{root, key}][name] = text;
        return true;
    }
    std::vector<std::string> ValueNames(TRoot root, const std::string& key) override
    {
        std::vector<std::string> names;
        for (const auto& [name, text] : Keys[{root, key}])
            names.push_back(name);
        return names;
    }
    bool DeleteValue(TRoot root, const std::string& key, const std::string& name) override
    {
        const auto values = Keys.find({root, key});
        return !Refused.contains(root) && values != Keys.end() && values->second.erase(name) != 0;
    }
    void DeleteKey(TRoot root, const std::string& key) override { Keys.erase({root, key}); }
};

// A desktop with an icon list whose label background can be read and set. The number of a window is
// its place from 1 on; behind the last of a parent's windows comes its first again.
struct TFakeShellWindows : TShellWindows {
    struct TWindow {
        const char* Class;
        TWindowId Parent;
    };
    std::vector<TWindow> Windows{
        {"#32769", 0}, {"Progman", 1}, {"SHELLDLL_DefView", 2}, {"SysListView32", 3}};
    bool HasShell = false;
    std::intptr_t LabelColor = 0;
    std::intptr_t ItemCount = 3;
    std::vector<unsigned> Messages;
    std::vector<std::string> Log; // what the list was asked, with parameters

    static constexpr unsigned GetTextBack = 0x1025, SetTextBack = 0x1026, GetCount = 0x1004,
                              GetStyle = 0x1037;

    TWindowId Next(TWindowId after, TWindowId parent) const
    {
        for (TWindowId window = after + 1; window <= Windows.size(); window++)
            if (Windows[window - 1].Parent == parent)
                return window;
        return 0;
    }

    TWindowId DesktopWindow() override { return HasShell ? 1 : 0; }
    TWindowId FirstChild(TWindowId window) override { return Next(window, window); }
    TWindowId NextSibling(TWindowId window) override
    {
        const TWindowId parent = Windows[window - 1].Parent;
        const TWindowId next = Next(window, parent);
        return next != 0 ? next : FirstChild(parent);
    }
    std::string ClassName(TWindowId window) override { return Windows[window - 1].Class; }
    std::optional<TRect> WindowRect(TWindowId) override { return std::nullopt; }
    std::vector<TRect> WindowRegion(TWindowId) override
    {
        Log.emplace_back("region");
        return {};
    }
    std::intptr_t Send(TWindowId, unsigned message, std::uintptr_t wParam,
                       std::intptr_t lParam) override
    {
        Messages.push_back(message);
        Log.push_back(std::to_string(message - 0x1000) + ' ' + std::to_string(wParam) + ' ' +
                      std::to_string(lParam));
        if (message == SetTextBack)
            LabelColor = lParam;
        return message == GetTextBack ? LabelColor
               : message == GetCount  ? ItemCount
               : message == GetStyle  ? 0x2040
                                      : 0;
    }
    void Update(TWindowId) override { Log.emplace_back("update"); }
};

struct TFakeScreenSaver : TScreenSaver {
    bool Running = false;
    bool IsRunning() override { return Running; }
};

struct TFakeLauncher : TLauncher {
    std::vector<std::string> Started;
    TShellResult Result = FirstShellSuccess;

    TShellResult Execute(TShellVerb, const std::string& file,
                         const std::string& parameters) override
    {
        Started.push_back(FileNamePart(file) + " " + parameters);
        return Result;
    }
    void OpenDisplayProperties() override { Started.push_back("display properties"); }
};

struct TFakeSiblings : TSiblings {
    int VeyraDesktop = 0;
    int Notified = 0;
    bool RovaneRuns = false;
    bool RovaneCloses = true;

    int GetVeyraDesktop() override { return VeyraDesktop; }
    void NotifyVeyraWallpaperChange() override { ++Notified; }
    TWindowId FindRovane() override { return RovaneRuns ? 7 : 0; }
    bool IsWindow(TWindowId) override { return RovaneRuns; }
    void PostClose(TWindowId) override { RovaneRuns = RovaneRuns && !RovaneCloses; }
};

struct TFakeMessageLoop : TMessageLoop {
    std::int64_t Time = 0;
    std::int64_t Milliseconds() override { return Time; }
    void Sleep(int milliseconds) override { Time += milliseconds; }
    void HandleOneMessage() override { Time += 100; }
    void HandlePendingMessages() override {}
};

} // namespace murala
