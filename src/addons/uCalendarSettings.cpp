#include "uCalendarSettings.h"

namespace murala
{

namespace
{

// The table of keys in the order of reading and writing: calls at(key, value) for each. TSettings
// is TCalendarSettings or const TCalendarSettings.
template<class TSettings, class TVisitor>
void ForEachKey(TSettings& s, const TVisitor& at)
{
    at("TitleFormat", s.TitleFormat);
    at("CalendarWidth", s.CalendarWidth);
    at("CalendarHeight", s.CalendarHeight);
    at("CalendarX", s.CalendarX);
    at("CalendarY", s.CalendarY);
    at("MainGamma", s.MainGamma);
    at("TitleGamma", s.TitleGamma);
    at("DayHeadingGamma", s.DayHeadingGamma);
    at("DayBoxGamma", s.DayBoxGamma);
    at("Title", s.TitleFont);
    at("DayHeading", s.DayHeadingFont);
    at("Day", s.DayFont);
    at("CalendarBorders", s.CalendarBorders);
    at("BorderColor", s.BorderColor);
}

std::string Key(std::string_view prefix, std::string_view name)
{
    return std::string(prefix).append(name);
}

// Reads a key over its default.
struct TReader {
    const TIniFile& File;
    std::string_view Section;

    void operator()(std::string_view key, std::string& value) const
    {
        value = File.ReadText(Section, key, value);
    }
    void operator()(std::string_view key, int& value) const
    {
        value = File.ReadInteger(Section, key, value);
    }
    void operator()(std::string_view key, bool& value) const
    {
        value = File.ReadBoolean(Section, key, value);
    }
    void operator()(std::string_view key, TColor& value) const
    {
        const auto otherwise = static_cast<std::int32_t>(value);
        value = static_cast<TColor>(File.ReadInteger(Section, key, otherwise));
    }
    void operator()(std::string_view prefix, TTint& tint) const
    {
        (*this)(Key(prefix, "Red"), tint.Red);
        (*this)(Key(prefix, "Green"), tint.Green);
        (*this)(Key(prefix, "Blue"), tint.Blue);
    }
    void operator()(std::string_view prefix, TMuFont& font) const
    {
        font = ReadFont(File, Section, prefix, font);
    }
};

struct TWriter {
    TIniFile& File;
    std::string_view Section;

    void operator()(std::string_view key, const std::string& value) const
    {
        File.Write(Section, key, QuotedIniText(value));
    }
    void operator()(std::string_view key, int value) const
    {
        File.Write(Section, key, std::to_string(value));
    }
    void operator()(std::string_view key, bool value) const
    {
        File.Write(Section, key, value ? "1" : "0");
    }
    void operator()(std::string_view key, TColor value) const
    {
        (*this)(key, static_cast<int>(value));
    }
    void operator()(std::string_view prefix, const TTint& tint) const
    {
        (*this)(Key(prefix, "Red"), tint.Red);
        (*this)(Key(prefix, "Green"), tint.Green);
        (*this)(Key(prefix, "Blue"), tint.Blue);
    }
    void operator()(std::string_view prefix, const TMuFont& font) const
    {
        WriteFont(File, Section, prefix, font);
    }
};

TMuFont BoldFont(const char* name, int size)
{
    TMuFont font;
    font.Name = name;
    font.Size = size;
    font.Bold = true;
    return font;
}

} // namespace

TCalendarSettings DefaultCalendarSettings()
{
    TCalendarSettings settings;
    settings.TitleFormat = "mmmm yyyy";
    settings.CalendarWidth = 320;
    settings.CalendarHeight = 240;
    settings.CalendarX = settings.CalendarY = 50;
    settings.MainGamma = {64, 64, 64};
    settings.TitleGamma = {192, 192, 192};
    settings.DayHeadingGamma = {224, 224, 224};
    settings.DayBoxGamma = {64, 64, 64};
    settings.TitleFont = BoldFont("Times New Roman", 24);
    settings.DayHeadingFont = BoldFont("Arial", 12);
    settings.DayFont = BoldFont("Arial", 10);
    return settings;
}

TCalendarSettings LoadCalendarSettings(const TIniFile& file, std::string_view section)
{
    TCalendarSettings settings = DefaultCalendarSettings();
    ForEachKey(settings, TReader{file, section});
    return settings;
}

void SaveCalendarSettings(TIniFile& file, std::string_view section,
                          const TCalendarSettings& settings)
{
    ForEachKey(settings, TWriter{file, section});
}

TCalendarEditorSettings LoadCalendarEditorSettings(const TIniFile& file, std::string_view section)
{
    TCalendarEditorSettings settings;
    const TReader read{file, section};
    read("ViewMode", settings.ViewMode);
    read("BackgroundFileName", settings.BackgroundFileName);
    return settings;
}

void SaveCalendarEditorSettings(TIniFile& file, std::string_view section,
                                const TCalendarEditorSettings& settings, bool hasBackgroundFile)
{
    const TWriter write{file, section};
    write("ViewMode", settings.ViewMode);
    if (hasBackgroundFile)
        write("BackgroundFileName", settings.BackgroundFileName);
}

} // namespace murala
