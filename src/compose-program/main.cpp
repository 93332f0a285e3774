// murala-compose: composes one desktop picture from the command line, without a window.

#include "uClock.h"
#include "uCompose.h"
#include "uDateNames.h"
#include "uMuCalendar.h"
#include "uSafeFile.h"
#include "uSystemCheck.h"
#include "uText.h"
#include "uVersion.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <future>
#include <optional>
#include <span>
#include <stdexcept>
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
  --calendar INI             draws a month's calendar with the settings of this file
  --date YYYY-MM-DD          the calendar's day instead of today
  --help, --version          as the only argument: prints this, or the version
)";

// The program was called wrongly.
struct EUsage {
};

struct TTask {
    TMuWallpaper Item;
    TSize Screen;
    std::string Target;
    std::string CalendarFile; // empty: no calendar
    std::optional<TDateTime> Date;
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

    // The index of a name; the word may also be the index itself.
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

TColor ParseColor(TArguments& arguments)
{
    TColor color = 0;
    for (const int shift : {0, 8, 16})
        color |= static_cast<TColor>(arguments.NextNumber(0, 255)) << shift;
    return color;
}

TDateTime ParseDate(std::string_view text)
{
    const auto date = TextToDateTime(text);
    if (!date)
        throw EUsage();
    return *date;
}

void ParseOptions(TArguments& arguments, TTask& task)
{
    while (!arguments.IsAtEnd()) {
        const std::string_view option = arguments.Next();
        if (option == "--tint")
            ParseTint(arguments, task.Item);
        else if (option == "--color")
            task.Item.DesktopColor = ParseColor(arguments);
        else if (option == "--calendar")
            task.CalendarFile = arguments.Next();
        else if (option == "--date")
            task.Date = ParseDate(arguments.Next());
        else
            throw EUsage();
    }
    if (task.Date && task.CalendarFile.empty())
        throw EUsage();
}

TTask ParseTask(TArguments arguments)
{
    TTask task;
    task.Item = TMuWallpaper(std::string(arguments.Next()));
    task.Item.DisplayMode = arguments.NextName<TDisplayMode>(DisplayModeNames);
    task.Screen = ParseSize(arguments.Next());
    task.Target = arguments.Next();
    ParseOptions(arguments, task);
    return task;
}

// Draws the calendar that a task asks for. Finding the fonts takes about as long as decoding a
// picture, so that is done meanwhile.
class TCalendarTask
{
public:
    explicit TCalendarTask(const TTask& task)
        : m_settings(LoadCalendarSettings(TIniFile::FromText(ReadWholeFile(task.CalendarFile)),
                                          CalendarSection)),
          m_date(task.Date ? *task.Date : NewClock()->Now()),
          m_text(std::async(std::launch::async, PrepareText, m_settings))
    {
    }

    void Draw(TBitmap& picture)
    {
        const auto text = m_text.get();
        TMuCalendar calendar(*text, LanguageDateNames(), m_date);
        calendar.Settings = m_settings;
        calendar.Draw(picture);
    }

private:
    static std::unique_ptr<TTextDrawing> PrepareText(const TCalendarSettings& settings)
    {
        auto text = NewTextDrawing();
        for (const TMuFont* font :
             {&settings.TitleFont, &settings.DayHeadingFont, &settings.DayFont})
            text->Measure(*font, "0");
        return text;
    }

    TCalendarSettings m_settings;
    TDateTime m_date;
    std::future<std::unique_ptr<TTextDrawing>> m_text;
};

void Run(const TTask& task)
{
    std::optional<TCalendarTask> calendar;
    TBeforeSave addOns;
    if (!task.CalendarFile.empty()) {
        calendar.emplace(task);
        addOns = [&](TBitmap& picture) { calendar->Draw(picture); };
    }
    const auto source = OpenImage(task.Item.FileName());
    SaveBitmapFile(ComposePicture(*source, task.Item, task.Screen, addOns), task.Target);
}

} // namespace

int main(int argc, char** argv)
{
    const std::span words = std::span(argv, static_cast<std::size_t>(argc)).subspan(1);
    if (const auto answer = AboutProgram("murala-compose", Usage, {words.begin(), words.end()}))
        return std::fputs(answer->c_str(), stdout) != EOF && std::fflush(stdout) == 0 ? 0 : 1;
    try {
        if (const std::string problem = SystemProblem(); !problem.empty())
            throw std::runtime_error(problem);
        Run(ParseTask(TArguments(words)));
        return 0;
    } catch (const EUsage&) {
        std::fwrite(Usage.data(), 1, Usage.size(), stderr);
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
