// A desktop that remembers what it was asked, in the place of the system's.
#pragma once

#include "uAutostart.h"
#include "uClock.h"
#include "uDesktop.h"
#include "uFileMenu.h"
#include "uFileQueue.h"
#include "uIconView.h"
#include "uLauncher.h"
#include "uLocale.h"
#include "uMessageLoop.h"
#include "uPath.h"
#include "uScreenSaver.h"
#include "uSessionEnd.h"
#include "uSiblings.h"
#include "uTaskBar.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace murala
{

struct TFakeDesktop : TDesktop {
    TSize Screen{64, 36};
    std::vector<TScreenGroup> OtherScreens; // that have pictures of their own
    bool TakesWallpaper = true;
    bool AnswersLater = false; // the answer of the last installation then waits in Answer
    std::function<void()> Answer;
    std::vector<std::string> Calls;
    TColor Color = 0;

    TSize ScreenSize() override { return Screen; }
    std::vector<TScreenGroup> Screens() override
    {
        auto screens = TDesktop::Screens();
        screens.insert(screens.end(), OtherScreens.begin(), OtherScreens.end());
        return screens;
    }
    int ScreenBitsPerPixel() override { return 32; }
    std::function<void()> OnScreens;
    void ListenToScreens(std::function<void()> onChange) override { OnScreens = onChange; }
    void WriteTileWallpaper(int mode) override { Calls.push_back("tile " + std::to_string(mode)); }
    void Install(const TScreenPictures& pictures, TColor color, TOnInstalled onInstalled) override
    {
        for (const TScreenPicture& picture : pictures)
            Calls.push_back("install " + FileNamePart(picture.Path) + ' ' + std::to_string(color));
        Color = color;
        Answer = [this, onInstalled = std::move(onInstalled)] {
            onInstalled({TakesWallpaper, ""});
        };
        if (!AnswersLater)
            std::exchange(Answer, nullptr)();
    }
    void ApplyDesktopColor(TColor color) override
    {
        Calls.push_back("colour " + std::to_string(color));
        Color = color;
    }
    TColor DesktopColor() override { return Color; }
};

struct TFakeLocale : TLocale {
    std::string SortKey(const std::string& text) override { return text; }
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

struct TFakeAutostart : TAutostart {
    std::map<std::string, std::string> Commands;
    bool IsForTheMachine = false; // an entry that the user may not take away
    int Changes = 0;

    bool RunValueExists(const std::string& name) override { return Commands.contains(name); }
    void SetRunValue(const std::string& name, const std::string& command) override
    {
        ++Changes;
        Commands[name] = command;
    }
    void DeleteRunValue(const std::string& name) override
    {
        ++Changes;
        if (!IsForTheMachine)
            Commands.erase(name);
    }
};

struct TFakeFileMenu : TFileMenu {
    std::vector<TFileCommand> Commands;
    bool Refuses = false;
    int Changes = 0;

    void AddShellCommand(const TFileCommand& command) override
    {
        RemoveShellCommand(command);
        if (!Refuses)
            Commands.push_back(command);
    }
    void RemoveShellCommand(const TFileCommand& command) override
    {
        ++Changes;
        if (!Refuses)
            std::erase_if(Commands,
                          [&](const TFileCommand& each) { return each.Verb == command.Verb; });
    }
    bool ShellCommandExists(const TFileCommand& command) override
    {
        return std::ranges::any_of(
            Commands, [&](const TFileCommand& each) { return each.Verb == command.Verb; });
    }
};

struct TFakeFileQueue : TFileQueue {
    std::vector<std::string> Names;
    bool Refuses = false;

    bool QueueFiles(const std::vector<std::string>& names) override
    {
        for (const std::string& name : names)
            if (!Refuses && std::ranges::find(Names, name) == Names.end())
                Names.push_back(name);
        return !Refuses;
    }
    std::vector<std::string> TakeQueuedFiles() override { return std::exchange(Names, {}); }
};

struct TFakeIconView : TIconView {
    bool HasIcons = false;
    TColor LabelColor = 0;
    int Questions = 0;
    int Paintings = 0;
    std::vector<TRect> Region;
    std::string RegionProblem; // a list that can be asked may not tell where its icons are

    bool CanBeAsked() override { return HasIcons; }
    TColor GetIconTextBackColor() override
    {
        Questions++;
        return HasIcons ? LabelColor : 0;
    }
    void SetIconTextBackColor(TColor color) override
    {
        if (!HasIcons)
            return;
        LabelColor = color;
        Paintings++;
    }
    TIconRegion GetIconRegion() override
    {
        if (!HasIcons)
            return {{}, "There are none."};
        return {RegionProblem.empty() ? Region : std::vector<TRect>(), RegionProblem};
    }
};

struct TFakeTaskBar : TTaskBar {
    std::optional<TRect> Rect;
    TRect GetTaskBarRect() override { return Rect ? *Rect : throw ETaskBarMissing(); }
};

struct TFakeScreenSaver : TScreenSaver {
    bool Running = false;
    bool IsRunning() override { return Running; }
};

struct TFakeLauncher : TLauncher {
    std::vector<std::string> Started;
    TShellVerb Verb{}; // of the last one
    TShellResult Result = FirstShellSuccess;

    TShellResult Execute(TShellVerb verb, const std::string& file,
                         const std::string& parameters) override
    {
        Verb = verb;
        Started.push_back(FileNamePart(file) + " " + parameters);
        return Result;
    }
    bool HasProperties = true;
    bool HasDisplayProperties() override { return HasProperties; }
    void OpenDisplayProperties() override { Started.emplace_back("display properties"); }
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

struct TFakeSessionEnd : TSessionEnd {
    std::function<void()> OnQuestion, OnEnd;
    void ListenToQuestion(std::function<void()> onQuestion) override
    {
        OnQuestion = std::move(onQuestion);
    }
    void Listen(void* /*mainWindow*/, std::function<void()> onEnd) override
    {
        OnEnd = std::move(onEnd);
    }
};

// Messages are what a test puts into Queue: whatever waits for something handles them, as the real
// loop would.
struct TFakeMessageLoop : TMessageLoop {
    std::int64_t Time = 0;
    std::deque<std::function<void()>> Queue;

    std::int64_t Milliseconds() override { return Time; }
    void Sleep(int milliseconds) override { Time += milliseconds; }
    void HandleOneMessage() override
    {
        Time += 100;
        HandleFirst();
    }
    void HandlePendingMessages() override
    {
        while (!Queue.empty())
            HandleFirst();
    }

private:
    void HandleFirst()
    {
        if (Queue.empty())
            return;
        const auto handle = std::move(Queue.front());
        Queue.pop_front();
        handle();
    }
};

} // namespace murala
