#include "uMurala.h"

#include "uPath.h"
#include "uSafeFile.h"
#include "uText.h"

#include <algorithm>
#include <utility>

namespace murala
{

TMurala::TMurala(const TServices& services, TMainView& view)
    : m_services(services), m_view(view),
      m_effects(services.ProgramFolder, services.Launcher, services.Siblings, services.MessageLoop)
{
}

std::string TMurala::FilePath(std::string_view name) const
{
    return JoinPath(m_services.ProgramFolder, name);
}

void TMurala::LoadSettings(const TPlacement& placement)
{
    const TSettingsDefaults defaults{m_services.ProgramFolder, m_services.Clock.Now(), placement};
    try {
        Settings = murala::LoadSettings(TIniFile::Load(FilePath(SettingsFileName)), defaults);
    } catch (const EFileError& error) {
        Settings = murala::LoadSettings(TIniFile(), defaults);
        m_view.ShowMessage(FormatText("The settings could not be read.\n\n%s", {error.what()}));
    }
    try {
        List.SetThumbnailFolder(Settings.ThumbnailFolder);
    } catch (const EFileError&) {
        // Thumbnails are then made without being kept; nothing is lost.
    }
    LoadStartup();
}

void TMurala::LoadList()
{
    try {
        List.LoadFromFile(FilePath(ListFileName));
    } catch (const std::runtime_error& error) {
        m_isListUnreadable = true;
        m_view.ShowMessage(
            FormatText("The wallpaper list could not be read completely.\n\n%s\n\n"
                       "%d wallpapers were loaded. Before the list is saved again, the "
                       "file is kept under another name.",
                       {error.what(), std::to_string(List.Count())}));
    }
    try {
        m_current = LoadCurrentWallpaper(TIniFile::Load(FilePath(SettingsFileName)), List,
                                         m_services.Siblings.GetVeyraDesktop());
    } catch (const EFileError&) {
        m_current = List.Count() > 0 ? 0 : -1;
    }
    m_view.RowsChanged();
}

void TMurala::Close()
{
    SaveList();
    ReleasePreview();
}

void TMurala::SaveList()
{
    if (Updating)
        return;
    try {
        const std::string path = FilePath(ListFileName);
        if (m_isListUnreadable) {
            const std::string kept = KeepUnreadableFile(path);
            m_isListUnreadable = false;
            m_view.SetStatus(FormatText("The unreadable list was kept as %s", {kept}));
        }
        List.SaveToFile(path);
        m_toldListProblem.clear();
    } catch (const std::runtime_error& error) {
        return TellOnce(m_toldListProblem,
                        FormatText("The wallpaper list could not be saved.\n\n%s", {error.what()}));
    }
    SaveSettings(AllSaveFlags);
}

// Every change saves, and would tell the same again.
void TMurala::TellOnce(std::string& told, const std::string& problem)
{
    if (std::exchange(told, problem) != problem)
        m_view.ShowMessage(problem);
}

void TMurala::SaveSettings(TSaveFlags parts)
{
    if (Updating || parts.none())
        return;
    Settings.WindowState = m_view.IsWindowVisible();
    Settings.Placement = m_view.NormalPlacement();
    const bool hasCurrent = m_current >= 0 && m_current < List.Count();
    const TListState list{List.Count(), hasCurrent ? List.Item(m_current).FileName() : "",
                          [this] { return m_services.Siblings.GetVeyraDesktop(); }};
    try {
        // The file is read again each time: what the user wrote into it meanwhile stays.
        TIniFile file = TIniFile::Load(FilePath(SettingsFileName));
        murala::SaveSettings(file, Settings, list, parts);
        file.Save(FilePath(SettingsFileName));
        m_toldSettingsProblem.clear();
    } catch (const EFileError& error) {
        TellOnce(m_toldSettingsProblem,
                 FormatText("The settings could not be saved.\n\n%s", {error.what()}));
    }
}

TMuWallpaper* TMurala::SelectedItem() const
{
    const int row = m_view.SelectedRow();
    return row >= 0 && row < List.Count() ? &List.Item(row) : nullptr;
}

bool TMurala::IsCurrentSelected() const
{
    return m_current >= 0 && m_view.SelectedRow() == m_current;
}

std::string TMurala::StatusText() const
{
    const TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return {};
    const std::string fileName = FileNamePart(item->FileName());
    const TSize size = m_source.SizeOf(item->FileName());
    if (size.Width == 0)
        return FormatText("%s - %s", {item->Title, fileName});
    return FormatText("%s - %s - (%dx%d)", {item->Title, fileName, std::to_string(size.Width),
                                            std::to_string(size.Height)});
}

int TMurala::AddFiles(const std::vector<std::string>& fileNames, const std::string& category)
{
    const TBusyScope busy(m_view);
    int added = 0;
    for (std::size_t i = 0; i < fileNames.size(); ++i) {
        const std::string& fileName = fileNames[i];
        if (List.ContainsFileName(fileName))
            continue;
        // Telling every single file would take longer than adding it.
        if (i % 64 == 0) {
            m_view.SetStatus(FormatText("Loading images (%s)", {FileNamePart(fileName)}));
            m_view.ShowProgress(static_cast<int>(i), static_cast<int>(fileNames.size()));
        }
        auto item = std::make_unique<TMuWallpaper>(fileName);
        item->Title = MakeTitle(fileName, Settings.Titles);
        item->DisplayMode = dmStretched;
        item->Category =
            category.empty() ? m_services.Locale.UpperCase(FolderPart(fileName)) : category;
        item->TransparentIcons = Settings.DefaultTransparentIcons;
        List.Add(std::move(item));
        ++added;
    }
    m_view.ShowProgress(0, 0);
    if (added == 0) {
        m_view.SetStatus(StatusText());
        return 0;
    }
    m_view.RowsChanged();
    m_view.SelectRow(List.Count() - 1);
    SaveList();
    return added;
}

void TMurala::RememberFolder(const std::string& folder)
{
    Settings.WallpaperPath = folder;
    SaveSettings(TSaveFlags().set(sfWallpaperPath));
}

void TMurala::RemoveSelected()
{
    const std::vector<int> rows = m_view.SelectedRows();
    if (rows.empty())
        return;
    const TMuWallpaper* current = m_current >= 0 ? &List.Item(m_current) : nullptr;
    for (const int row : rows) {
        List.ForgetThumbnail(List.Item(row).FileName());
        List.Item(row).DeleteThumbnailFile();
        if (row == m_current)
            current = nullptr;
    }
    List.DeleteMany(rows);
    m_current = current != nullptr ? List.IndexOf(current) : -1;
    SaveList();
    m_view.RowsChanged();
    const int lastRemoved = rows.back() - static_cast<int>(rows.size()) + 1;
    m_view.SelectRow(std::min(List.Count() - 1, lastRemoved));
}

void TMurala::Rename(int row, const std::string& title)
{
    if (title == List.Item(row).Title)
        return;
    List.Item(row).Title = title;
    m_view.RowChanged(row);
    m_view.SetStatus(StatusText());
    SaveList();
}

void TMurala::SortByColumn(TListColumn column)
{
    const TBusyScope busy(m_view);
    m_sortAscending = column == m_sortColumn ? !m_sortAscending : m_sortAscending;
    m_sortColumn = column;
    const TMuWallpaper* current = m_current >= 0 ? &List.Item(m_current) : nullptr;
    const TMuWallpaper* selected = SelectedItem();
    List.Sort(column, m_sortAscending, [this](const std::string& a, const std::string& b) {
        return m_services.Locale.Compare(a, b);
    });
    m_current = current != nullptr ? List.IndexOf(current) : -1;
    m_view.RowsChanged();
    m_view.SelectRow(selected != nullptr ? List.IndexOf(selected) : -1);
    SaveList();
}

} // namespace murala
