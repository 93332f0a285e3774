// save-loop FOLDER: checks that the list and the settings in the folder are a whole version that
// may be there, then saves one version after the other until it is killed. After both files of a
// version were saved, its number goes to the file "acknowledged".
#include "uPath.h"
#include "uSafeFile.h"
#include "uSettings.h"
#include "uText.h"
#include "uWallpaper.h"

#include <chrono>
#include <iostream>

using namespace murala;

namespace
{

// For the case that nobody comes to kill us.
constexpr std::chrono::seconds LongestRun{60};

std::string ListPath(const std::string& folder)
{
    return JoinPath(folder, ListFileName);
}
std::string SettingsPath(const std::string& folder)
{
    return JoinPath(folder, SettingsFileName);
}

void FillList(TMuWallpaperList& list, int version)
{
    const int count = 1000 + version % 100;
    for (int i = 0; i < count; ++i) {
        auto item = std::make_unique<TMuWallpaper>();
        item->FileName = "/pictures/" + std::to_string(i) + ".jpg";
        item->Title =
            FormatText("picture %d of version %d", {std::to_string(i), std::to_string(version)});
        item->Category = "sea";
        list.Add(std::move(item));
    }
}

void SetVersion(TIniFile& file, int version)
{
    TMuSettings settings;
    settings.ScheduleFrequency = version;
    settings.Titles.ConvertList.assign(static_cast<std::size_t>(version % 50), {"a", "b"});
    SaveSettings(file, settings, {version, "/current", 0}, AllSaveFlags);
}

std::string ListText(const TMuWallpaperList& list)
{
    std::string text;
    for (int i = 0; i < list.Count(); ++i)
        text += list.Item(i).SaveToLine() + "\n";
    return text;
}

bool IsListOf(const std::string& folder, int version)
{
    TMuWallpaperList list, expected;
    list.LoadFromFile(ListPath(folder));
    FillList(expected, version);
    return ListText(list) == ListText(expected);
}

bool AreSettingsOf(const std::string& folder, int version)
{
    TIniFile expected;
    SetVersion(expected, version);
    return TIniFile::Load(SettingsPath(folder)).ToText() == expected.ToText();
}

int LastAcknowledged(const std::string& path)
{
    if (!FileExists(path))
        return 0;
    const std::string text = ReadWholeFile(path);
    const auto lines = SplitLines(std::string_view(text).substr(0, text.rfind('\n') + 1));
    return lines.empty() ? 0 : ParseInteger(lines.back()).value_or(-1);
}

// What was acknowledged must be there; the version after it may have been saved, the list first.
void Check(const std::string& folder, int acknowledged)
{
    const bool newList = IsListOf(folder, acknowledged + 1);
    if (!newList && !IsListOf(folder, acknowledged))
        throw std::runtime_error("the list is no version that may be there");
    if (!AreSettingsOf(folder, acknowledged) &&
        !(newList && AreSettingsOf(folder, acknowledged + 1)))
        throw std::runtime_error("the settings are no version that may be there");
}

void SaveVersion(const std::string& folder, int version)
{
    TMuWallpaperList list;
    FillList(list, version);
    list.SaveToFile(ListPath(folder));
    TIniFile file = TIniFile::Load(SettingsPath(folder));
    SetVersion(file, version);
    file.Save(SettingsPath(folder));
}

void Run(const std::string& folder)
{
    const std::string acknowledgedPath = JoinPath(folder, "acknowledged");
    int version = LastAcknowledged(acknowledgedPath);
    if (version != 0)
        Check(folder, version);
    const TFile acknowledged = OpenFile(acknowledgedPath, "ab");
    OpenFile(JoinPath(folder, "saving"), "wb");
    const auto end = std::chrono::steady_clock::now() + LongestRun;
    while (std::chrono::steady_clock::now() < end) {
        SaveVersion(folder, ++version);
        std::fprintf(acknowledged.get(), "%d\n", version);
        std::fflush(acknowledged.get());
    }
}

} // namespace

int main(int argc, char* argv[])
try {
    Run(argc > 1 ? argv[1] : ".");
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
