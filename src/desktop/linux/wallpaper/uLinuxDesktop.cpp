// The desktop of a Linux session. The colour, which Windows keeps in "win.ini", is kept in a file
// of Murala's own, in a section and under a key of the same names.
#include "uBackground.h"
#include "uColorText.h"
#include "uDesktop.h"
#include "uFolders.h"
#include "uIniFile.h"
#include "uPath.h"
#include "uSafeFile.h"
#include "uScreens.h"
#include "uWork.h"

#include <cstdio>
#include <filesystem>
#include <vector>

namespace murala
{

namespace
{

constexpr std::string_view StoreName = "Murala.desktop.ini";
constexpr std::string_view ColorsSection = "colors";

constexpr gint64 RetryLimitUs = gint64{60} * G_USEC_PER_SEC;
constexpr unsigned RetryPauseMs = 2000;

// Makes names for the picture. Desktops that go by names would show again what they have kept under
// a known name, so each picture gets a name that was never used,
// "MuralaWallpaper~5f1c0a9b3d2e4.bmp".
class TFreshNames
{
public:
    explicit TFreshNames(const std::string& path)
        : m_path(path), m_extension(ExtensionPart(path)),
          m_start(path.substr(0, path.size() - m_extension.size()) + '~')
    {
    }

    // A link to the file. Empty when neither that nor a copy can be made.
    std::string Make() const
    {
        char number[32];
        std::snprintf(number, sizeof number, "%llx",
                      static_cast<unsigned long long>(g_get_real_time()));
        const std::string name = m_start + number + m_extension;
        std::error_code error;
        std::filesystem::create_hard_link(m_path, name, error);
        if (error)
            std::filesystem::copy_file(m_path, name, error);
        return error ? "" : name;
    }

    void RemoveOthers(const std::string& kept) const
    {
        std::error_code ignored;
        for (const auto& entry : EntriesOf(FolderPart(m_path)))
            if (entry != kept && IsOurs(entry))
                std::filesystem::remove(entry, ignored);
    }

private:
    bool IsOurs(const std::string& name) const
    {
        if (!name.starts_with(m_start) || !name.ends_with(m_extension) ||
            name.size() <= m_start.size() + m_extension.size())
            return false;
        const std::string_view number(name.data() + m_start.size(),
                                      name.size() - m_start.size() - m_extension.size());
        return number.find_first_not_of("0123456789abcdef") == std::string_view::npos;
    }

    std::string m_path, m_extension, m_start;
};

// A picture on its way to the desktop.
struct TJob {
    std::string Path;
    std::string Name; // what the desktop is told
    TColor Color;
    TOnInstalled OnInstalled;
    gint64 Begin = g_get_monotonic_time();
    TSource Retry = nullptr;
};

class TLinuxDesktop : public TDesktop
{
public:
    explicit TLinuxDesktop(const std::string& programFolder)
        : m_storeFile(JoinPath(programFolder, StoreName)),
          m_background(NewBackground(RunningSession()))
    {
    }

    TSize ScreenSize() override { return m_screens.PrimarySize(); }
    int ScreenBitsPerPixel() override { return m_screens.BitsPerPixel(); }

    void ListenToScreens(std::function<void()> onChange) override
    {
        if (m_background->IsOutdated())
            onChange();
        m_screens.Listen(std::move(onChange));
    }

    // The picture is as large as the screen: there is nothing to tile.
    void WriteTileWallpaper(int /*mode*/) override {}

    void Install(const TScreenPictures& pictures, TColor color, TOnInstalled onInstalled) override
    {
        const std::string& path = pictures.front().Path;
        StoreColor(color);
        m_job.reset();
        const bool isThere = FileExists(path);
        std::string name = isThere && m_background->GoesByNames() ? TFreshNames(path).Make() : path;
        if (!isThere || name.empty())
            return onInstalled({false, ""});
        m_job = std::make_shared<TJob>(TJob{path, std::move(name), color, std::move(onInstalled)});
        Try();
    }

    void ApplyDesktopColor(TColor color) override
    {
        StoreColor(color);
        m_background->SetColor(color);
    }

    TColor DesktopColor() override
    {
        const auto color = m_background->Color();
        return color ? *color : StoredColor();
    }

private:
    // A late answer finds its job gone when this object is gone or a newer picture is on its way.
    void Try()
    {
        m_background->SetPicture(
            m_job->Name, m_job->Color,
            [this, waiting = std::weak_ptr(m_job)](TTook took, const std::string& advice) {
                if (!waiting.expired())
                    Answered(took, advice);
            });
    }

    void Answered(TTook took, const std::string& advice)
    {
        if (took == TTook::NotYet && g_get_monotonic_time() - m_job->Begin < RetryLimitUs) {
            m_job->Retry = RunAfter(RetryPauseMs, [this] { Try(); });
            return;
        }
        // The listener may install the next picture at once: the job is over before it is told.
        const auto job = std::move(m_job);
        if (took == TTook::Yes)
            TFreshNames(job->Path).RemoveOthers(job->Name);
        job->OnInstalled({took == TTook::Yes, advice});
    }

    void StoreColor(TColor color)
    try {
        TIniFile file = TIniFile::Load(m_storeFile);
        const std::string text = ColorToIniText(color);
        if (file.ReadText(ColorsSection, "Background", "") == text)
            return;
        file.Write(ColorsSection, "Background", text);
        file.Save(m_storeFile);
    } catch (const EFileError&) {
        // The folder cannot be written to: the wallpaper is set all the same.
    }

    TColor StoredColor() const
    try {
        return IniTextToColor(
            TIniFile::Load(m_storeFile).ReadText(ColorsSection, "Background", ""));
    } catch (const std::runtime_error&) {
        return 0; // none is stored, or it cannot be read
    }

    std::string m_storeFile;
    TScreenWatch m_screens;
    std::unique_ptr<TBackground> m_background;
    std::shared_ptr<TJob> m_job;
};

} // namespace

std::unique_ptr<TDesktop> NewDesktop(const std::string& programFolder)
{
    return std::make_unique<TLinuxDesktop>(programFolder);
}

} // namespace murala
