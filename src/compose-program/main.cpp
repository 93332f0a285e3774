// murala-compose: composes one desktop picture from the command line, without a window.

#include "uCompose.h"
#include "uSafeFile.h"
#include "uText.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <optional>
#include <span>
#include <string_view>

using namespace murala;

namespace
{

constexpr std::string_view Usage =
    R"(usage: murala-compose IMAGE MODE WIDTHxHEIGHT OUT.bmp [options]

  MODE   0 to 5 or a name: Tiled, Centered, Stretched, Mirror Tiled, Fit Horizontally, Fit Vertically
  --tint STYLE R G B R G B   0 to 3 or a name: (None), Solid, Horizontal, Vertical;
                             the start and the end tint, each value -256 to 255
  --color R G B              the desktop colour, each value 0 to 255
)";

// A wrong command line.
struct EUsage {
};

struct TTask {
    TMuWallpaper Item;
    TSize Screen;
    std::string Target;
};

// The command line's words, from left to right.
class TArguments
{
public:
    explicit TArguments(std::span<char*> words) : m_words(words) {}

    bool IsAtEnd() const { return m_words.empty(); }

    std::string_view Next()
    {
        if (m_words.empty())
            throw EUsage();
        const std::string_view word = m_words.front();
        m_words = m_words.subspan(1);
        return word;
    }

    int NextNumber(int min, int max) { return Number(Next(), min, max); }

    TTint NextTint()
    {
        TTint tint;
        for (int* value : {&tint.Red, &tint.Green, &tint.Blue})
            *value = NextNumber(-256, 255);
        return tint;
    }

    static int Number(std::string_view text, int min, int max)
    {
        const std::optional<std::int32_t> number = ParseInteger(text);
        if (!number || *number < min || *number > max)
            throw EUsage();
        return *number;
    }

    // The index of a name, which may be given itself.
    template<typename TEnum>
    TEnum NextName(std::span<const std::string_view> names)
    {
        const std::string_view word = Next();
        const auto name = std::ranges::find(names, word);
        if (name != names.end())
            return static_cast<TEnum>(name - names.begin());
        return static_cast<TEnum>(Number(word, 0, static_cast<int>(names.size()) - 1));
    }

private:
    std::span<char*> m_words;
};

TSize ParseSize(std::string_view text)
{
    const std::size_t divider = std::min(text.find('x'), text.size());
    const int width = TArguments::Number(text.substr(0, divider), 1, MaxSide);
    const int height =
        TArguments::Number(text.substr(std::min(divider + 1, text.size())), 1, MaxSide);
    if (!IsUsable({width, height}))
        throw EUsage();
    return {width, height};
}

void ParseTint(TArguments& arguments, TMuWallpaper& item)
{
    item.GammaStyle = arguments.NextName<TGammaStyle>(GammaStyleNames);
    item.SetStartTint(arguments.NextTint());
    item.SetEndTint(arguments.NextTint());
}

void ParseOptions(TArguments& arguments, TMuWallpaper& item)
{
    while (!arguments.IsAtEnd()) {
        const std::string_view option = arguments.Next();
        if (option == "--tint") {
            ParseTint(arguments, item);
        } else if (option == "--color") {
            item.DesktopColor = 0;
            for (const int shift : {0, 8, 16})
                item.DesktopColor |= static_cast<TColor>(arguments.NextNumber(0, 255)) << shift;
        } else {
            throw EUsage();
        }
    }
}

TTask ParseTask(TArguments arguments)
{
    TTask task;
    task.Item = TMuWallpaper(std::string(arguments.Next()));
    task.Item.DisplayMode = arguments.NextName<TDisplayMode>(DisplayModeNames);
    task.Screen = ParseSize(arguments.Next());
    task.Target = arguments.Next();
    ParseOptions(arguments, task.Item);
    return task;
}

void Run(const TTask& task)
{
    const auto source = OpenImage(task.Item.FileName());
    SaveBitmapFile(ComposePicture(*source, task.Item, task.Screen, {}), task.Target);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        Run(ParseTask(TArguments(std::span(argv, static_cast<std::size_t>(argc)).subspan(1))));
        return 0;
    } catch (const EUsage&) {
        std::fwrite(Usage.data(), 1, Usage.size(), stderr);
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
