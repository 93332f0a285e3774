// Desktops whose background is set by a command: LXDE, LXQt and sway.
#include "uBackground.h"
#include "uProcess.h"

#include <cstdlib>
#include <filesystem>

namespace murala
{

namespace
{

// The file managers that draw the desktop of LXDE and of LXQt. They know no command for the colour.
class TFileManagerBackground : public TBackground
{
public:
    TFileManagerBackground(std::string program, std::string mode)
        : m_program(std::move(program)), m_mode(std::move(mode))
    {
    }

    std::optional<bool> IsStuckTo(const std::string& /*path*/) override { return std::nullopt; }
    bool SetPicture(const std::string& path, TColor /*color*/) override
    {
        return RunProgram({m_program, "--set-wallpaper=" + path, "--wallpaper-mode=" + m_mode});
    }
    std::optional<TColor> Color() override { return std::nullopt; }
    void SetColor(TColor /*color*/) override {}

private:
    std::string m_program;
    std::string m_mode;
};

// sway expands a file name as a shell would. A name with anything but plain characters is therefore
// given as a link with a plain one. The link need not outlive the session.
std::string PlainName(const std::string& path)
{
    constexpr const char* plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-";
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    if (path.find_first_not_of(plain) == std::string::npos || folder == nullptr)
        return path;
    const std::filesystem::path link = std::filesystem::path(folder) / "murala-wallpaper.bmp";
    std::error_code error;
    std::filesystem::remove(link, error);
    std::filesystem::create_symlink(path, link, error);
    return error ? path : link.string();
}

class TSwayBackground : public TBackground
{
public:
    std::optional<bool> IsStuckTo(const std::string& /*path*/) override { return false; }
    bool SetPicture(const std::string& path, TColor color) override
    {
        return RunProgram(
            {"swaymsg", "output", "*", "bg", PlainName(path), "fill", ColorToHexText(color)});
    }
    // The colour is part of the command that sets the picture, and hidden by the picture.
    std::optional<TColor> Color() override { return std::nullopt; }
    void SetColor(TColor /*color*/) override {}
};

} // namespace

std::unique_ptr<TBackground> NewFileManagerBackground(TSession session)
{
    if (session == TSession::Lxqt)
        return std::make_unique<TFileManagerBackground>("pcmanfm-qt", "zoom");
    return std::make_unique<TFileManagerBackground>("pcmanfm", "crop");
}

std::unique_ptr<TBackground> NewSwayBackground()
{
    return std::make_unique<TSwayBackground>();
}

} // namespace murala
