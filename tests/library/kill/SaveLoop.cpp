// save-loop FOLDER: checks that the list and the settings in the folder are a whole version that
// may be there, then saves one version after the other until it is killed. After both files of a
// version were saved, its number goes to the file "acknowledged".
#include "uPath.h"
#include "uSafeFile.h"
#include "uSettings.h"
#include "uText.h"

#include <iostream>

using namespace murala;

namespace
{

void SaveVersion(const std::string& folder, int version)
{
    TMuWallpaperList list;
    for (int i = 0; i < 1000 + version % 100; ++i) {
        auto item = std::make_unique<TMuWallpaper>("/pictures/" + std::to_string(i) + ".jpg");
        item->Title = "of version " + std::to_string(version);
        list.Add(std::move(item));
    }
    list.SaveToFile(JoinPath(folder, ListFileName));
    TMuSettings settings;
    settings.Schedule.Frequency = version;
    settings.Preferences.Titles.ConvertList.assign(static_cast<std::size_t>(version % 50),
                                                   {"a", "b"});
    TIniFile file = TIniFile::Load(JoinPath(folder, SettingsFileName));
    SaveSettings(file, settings, {version, "/current"}, AllSaveFlags);
    file.Save(JoinPath(folder, SettingsFileName));
}

// What was acknowledged must be there; the version after it may have been saved, the list first.
void Check(const std::string& folder, int acknowledged)
{
    const std::string expected = JoinPath(folder, "expected");
    std::filesystem::create_directory(NativePath(expected));
    const auto isOf = [&](int version, std::string_view name) {
        SaveVersion(expected, version);
        return ReadWholeFile(JoinPath(folder, name)) == ReadWholeFile(JoinPath(expected, name));
    };
    const bool newList = isOf(acknowledged + 1, ListFileName);
    if (!newList && !isOf(acknowledged, ListFileName))
        throw std::runtime_error("the list is no version that may be there");
    if (!isOf(acknowledged, SettingsFileName) &&
        !(newList && isOf(acknowledged + 1, SettingsFileName)))
        throw std::runtime_error("the settings are no version that may be there");
}

void Run(const std::string& folder)
{
    const TFile acknowledged = OpenFile(JoinPath(folder, "acknowledged"), "ab");
    const std::string text = ReadWholeFile(JoinPath(folder, "acknowledged"));
    const auto lines = SplitLines(std::string_view(text).substr(0, text.rfind('\n') + 1));
    int version = lines.empty() ? 0 : ParseInteger(lines.back()).value();
    if (version != 0)
        Check(folder, version);
    OpenFile(JoinPath(folder, "saving"), "wb");
    for (const int last = version + 10000; version < last;) { // should nobody come to kill us
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
