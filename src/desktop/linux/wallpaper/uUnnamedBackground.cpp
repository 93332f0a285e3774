// For a session that does not say which desktop it runs, e.g. one that the user has put together.
// We look for the program that draws its desktop anew for each picture.
#include "uBackground.h"
#include "uDesktopWindow.h"
#include "uText.h"

#include <algorithm>
#include <utility>

namespace murala
{

namespace
{

struct TDesktopProgram {
    std::string_view Class; // of its desktop's window
    TSession Session;
};

constexpr TDesktopProgram DesktopPrograms[] = {
    {"pcmanfm", TSession::Lxde},          {"pcmanfm-qt", TSession::Lxqt},
    {"xfdesktop", TSession::Xfce},        {"caja", TSession::Mate},
    {"nemo-desktop", TSession::Cinnamon}, {"plasmashell", TSession::Plasma},
};

class TUnnamedBackground : public TBackground
{
public:
    bool GoesByNames() const override { return Find(DesktopWindowClass())->GoesByNames(); }

    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    {
        const std::string program = DesktopWindowClass();
        // Kept from picture to picture: that of the root window watches over its picture.
        if (!m_background || std::exchange(m_program, program) != program)
            m_background = Find(program);
        if (program.empty() || IsKnown(program))
            return m_background->SetPicture(path, color, std::move(onTook));
        // On the root window it shows once that program ends.
        m_background->SetPicture(
            path, color, [program, onTook = std::move(onTook)](TTook, const std::string&) {
                onTook(TTook::No,
                       FormatText("%s draws the desktop: set its picture there, or close it.",
                                  {program}));
            });
    }

    bool IsOutdated() override { return Find(DesktopWindowClass())->IsOutdated(); }

    std::optional<TColor> Color() override { return Find(DesktopWindowClass())->Color(); }
    void SetColor(TColor color) override { Find(DesktopWindowClass())->SetColor(color); }

private:
    static const TDesktopProgram* FindProgram(const std::string& name)
    {
        return std::ranges::find_if(DesktopPrograms, [&](const TDesktopProgram& known) {
            return SameTextAscii(known.Class, name);
        });
    }
    static bool IsKnown(const std::string& name)
    {
        return FindProgram(name) != std::end(DesktopPrograms);
    }
    static std::unique_ptr<TBackground> Find(const std::string& name)
    {
        return IsKnown(name) ? NewBackground(FindProgram(name)->Session)
                             : NewRootWindowBackground();
    }

    std::string m_program;
    std::unique_ptr<TBackground> m_background; // while it works
};

} // namespace

std::unique_ptr<TBackground> NewUnnamedBackground()
{
    return std::make_unique<TUnnamedBackground>();
}

} // namespace murala
