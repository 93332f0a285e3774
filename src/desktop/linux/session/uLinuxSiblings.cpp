#include "uFolders.h"
#include "uSiblings.h"
#include "uText.h"
#include "uWindowSocket.h"

namespace murala
{

namespace
{

// Stands for Rovane's window; 0 is "none".
constexpr TWindowId RovaneWindow = 1;

// A path that cannot exist when the user has no runtime folder.
std::filesystem::path SocketOf(const char* windowClass)
{
    return RuntimeFolder().value_or("/nonexistent") / windowClass;
}

class TLinuxSiblings : public TSiblings
{
public:
    int GetVeyraDesktop() override
    {
        const std::string tell = std::string(TellDesktopMessage) + ' ';
        const auto answer = AskWindowSocket(SocketOf(VeyraWindowClass), GetDesktopMessage);
        if (!answer || !answer->starts_with(tell))
            return 0;
        return ParseInteger(std::string_view(*answer).substr(tell.size())).value_or(0);
    }

    void NotifyVeyraWallpaperChange() override
    {
        PostToWindowSocket(SocketOf(VeyraWindowClass), WallpaperChangeMessage);
    }

    TWindowId FindRovane() override
    {
        return WindowSocketExists(SocketOf(RovaneWindowClass)) ? RovaneWindow : 0;
    }
    bool IsWindow(TWindowId /*window*/) override { return FindRovane() != 0; }
    void PostClose(TWindowId /*window*/) override
    {
        PostToWindowSocket(SocketOf(RovaneWindowClass), "WM_CLOSE");
    }
};

} // namespace

std::unique_ptr<TSiblings> NewSiblings()
{
    return std::make_unique<TLinuxSiblings>();
}

} // namespace murala
