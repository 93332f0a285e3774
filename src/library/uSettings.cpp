#include "uSettings.h"

#include "uConvertList.h"
#include "uPath.h"

namespace murala
{

namespace
{

// It is only written together with all other keys.
constexpr std::string_view WallpaperCountKey = "WallpaperCount";

void Read(const TIniFile& file, const TSettingKey& key, std::string* value)
{
    *value = file.ReadText(key.Section, key.Name, *value);
}
void Read(const TIniFile& file, const TSettingKey& key, bool* value)
{
    *value = file.ReadBoolean(key.Section, key.Name, *value);
}
void Read(const TIniFile& file, const TSettingKey& key, TDateTime* value)
{
    *value = file.ReadDateTime(key.Section, key.Name, *value);
}
void Read(const TIniFile& file, const TSettingKey& key, TTimeOfDay value)
{
    *value = file.ReadTime(key.Section, key.Name, *value);
}
void Read(const TIniFile& file, const TSettingKey& key, TConvertList* value)
{
    if (file.HasSection(key.Section))
        *value = PairsToConvertList(file.ReadSection(key.Section));
}
// Numbers, colours and enumerations.
template<typename TNumber>
void Read(const TIniFile& file, const TSettingKey& key, TNumber* value)
{
    const auto otherwise = static_cast<std::int32_t>(*value);
    *value = static_cast<TNumber>(file.ReadInteger(key.Section, key.Name, otherwise));
}

std::string StoredText(const std::string* value)
{
    return QuotedIniText(*value);
}
std::string StoredText(const TDateTime* value)
{
    return DateTimeToText(*value);
}
std::string StoredText(TTimeOfDay value)
{
    return TimeToText(*value);
}
template<typename TNumber>
std::string StoredText(const TNumber* value)
{
    return std::to_string(static_cast<std::int32_t>(*value));
}

void Write(TIniFile& file, const TSettingKey& key, TConvertList* value)
{
    file.WriteSection(key.Section, ConvertListToPairs(*value));
}
template<typename TField>
void Write(TIniFile& file, const TSettingKey& key, TField value)
{
    file.Write(key.Section, key.Name, StoredText(value));
}

// Calls with(a, b) for the key's value in both, whatever its form is.
template<typename TFunction>
auto WithBoth(const TSettingKey& key, TMuSettings& a, TMuSettings& b, const TFunction& with)
{
    return std::visit(
        [&](auto value) { return with(*value, *std::get<decltype(value)>(key.Field(b))); },
        key.Field(a));
}

bool IsStored(const TIniFile& file, const TSettingKey& key, TMuSettings& settings)
{
    if (key.Store != TStore::OnceChanged)
        return key.Store == TStore::Always;
    TMuSettings defaults;
    return file.Read(key.Section, key.Name).has_value() ||
           WithBoth(key, settings, defaults,
                    [](const auto& value, const auto& before) { return value != before; });
}

} // namespace

TMuSettings LoadSettings(const TIniFile& file, const TSettingsDefaults& defaults)
{
    TMuSettings settings;
    settings.Memory.WallpaperPath = defaults.ProgramFolder;
    settings.Memory.LastChangeDate = defaults.Now;
    settings.Window.Placement = defaults.Placement;
    for (const TSettingKey& key : SettingKeys)
        std::visit([&](auto value) { Read(file, key, value); }, key.Field(settings));
    std::string& folder = settings.Memory.ThumbnailFolder;
    folder = ResolvePath(defaults.ProgramFolder, folder.empty() ? "Thumbnails" : folder);
    return settings;
}

TMuSettings ReloadSettings(const TIniFile& file, const TSettingsDefaults& defaults,
                           TMuSettings present)
{
    TMuSettings settings = LoadSettings(file, defaults);
    for (const TSettingKey& key : SettingKeys)
        if (key.Reload == TReload::Keep)
            WithBoth(key, settings, present, [](auto& value, auto& kept) { value = kept; });
    return settings;
}

bool IsNewUsersFile(const TIniFile& file)
{
    return !file.Read(MainSection, WallpaperCountKey);
}

void AddFirstSettings(TIniFile& file, const TIniFile& first)
{
    for (const TSettingKey& key : SettingKeys)
        if (!key.Name.empty()) {
            const auto value = first.Read(key.Section, key.Name);
            if (value && !file.Read(key.Section, key.Name))
                file.Write(key.Section, key.Name, QuotedIniText(*value));
        } else if (first.HasSection(key.Section) && !file.HasSection(key.Section)) {
            // Reading takes the quotes off, so the pairs are written as a list is.
            file.WriteSection(key.Section, ConvertListToPairs(
                                               PairsToConvertList(first.ReadSection(key.Section))));
        }
}

void SaveSettings(TIniFile& file, TMuSettings settings, const TListState& list, TSaveFlags parts)
{
    if (parts[sfWallpaperCount])
        file.Write(MainSection, WallpaperCountKey, std::to_string(list.Count));
    if (parts[sfWallpaperCurrent] && !list.CurrentFileName.empty())
        file.Write(MainSection, WallpaperCurrentKey(list.Desktop),
                   QuotedIniText(list.CurrentFileName));
    for (const TSettingKey& key : SettingKeys)
        if (parts[key.Flag] && IsStored(file, key, settings))
            std::visit([&](auto value) { Write(file, key, value); }, key.Field(settings));
}

std::string WallpaperCurrentKey(int desktop)
{
    return "WallpaperCurrent" + (desktop >= 2 ? std::to_string(desktop) : std::string());
}

int LoadCurrentWallpaper(const TIniFile& file, const TMuWallpaperList& list, int desktop)
{
    const int index =
        list.IndexOfFileName(file.ReadText(MainSection, WallpaperCurrentKey(desktop), ""));
    return index == -1 && list.Count() > 0 ? 0 : index;
}

} // namespace murala
