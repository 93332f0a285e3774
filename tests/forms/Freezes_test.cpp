// Ten thousand wallpapers: whatever the user does, the window goes on answering.
#include "MainFixture.h"

using namespace murala;

namespace
{

constexpr int RowCount = 10000;
// Milliseconds, on a busy machine below Wine. Natively a quiet one stays near 100.
constexpr int LongestFreeze = 1500;

// Notes how long the window did not answer at the longest.
class TProbe : public wxTimer
{
public:
    TProbe() { Start(1); }
    void Notify() override
    {
        const auto now = std::chrono::steady_clock::now();
        m_longest = std::max(m_longest, now - std::exchange(m_last, now));
    }
    int TakeLongest()
    {
        Notify();
        const auto longest = std::exchange(m_longest, {});
        return static_cast<int>(
            std::chrono::duration_cast<std::chrono::milliseconds>(longest).count());
    }

private:
    std::chrono::steady_clock::time_point m_last = std::chrono::steady_clock::now();
    std::chrono::steady_clock::duration m_longest{};
};

class TenThousandRows : public TMainFixture, public testing::WithParamInterface<TActionId>
{
protected:
    TenThousandRows()
    {
        m_services.IconView.HasIcons = true;
        const std::string first = Picture("Picture.bmp", 40, 30, 0x204060);
        TMuWallpaperList list;
        for (int i = 0; i < RowCount; ++i) {
            const std::string name = m_folder.File(std::to_string(i * 7919L % 10007) + ".bmp");
            std::filesystem::create_hard_link(NativePath(first), NativePath(name));
            auto item = std::make_unique<TMuWallpaper>(name);
            item->Title = FileNamePart(name);
            item->Category = "Category " + std::to_string(i % 50);
            list.Add(std::move(item));
        }
        list.SaveToFile(m_folder.File(ListFileName));
    }

    TItems All()
    {
        m_main->Actions().Execute(aSelectAll);
        return m_main->Murala().Core.Selection.Items();
    }
    std::vector<std::string> Names()
    {
        std::vector<std::string> names;
        for (const TMuWallpaper* item : All())
            names.push_back(item->FileName());
        return names;
    }
    void RemoveFirst(int count)
    {
        std::vector<int> rows(static_cast<std::size_t>(count));
        std::ranges::generate(rows, [row = 0]() mutable { return row++; });
        m_main->Murala().Core.Selection.SelectRows(rows, 0);
        m_main->Actions().Execute(aRemove);
    }
};

} // namespace

TEST_P(TenThousandRows, NothingFreezesTheWindow)
{
    Start();
    m_main->Actions().Execute(GetParam());
    TMurala& murala = m_main->Murala();
    const auto press = [this](TActionId id) {
        return [=, this] { m_main->Actions().Execute(id); };
    };
    const auto sort = [&](TListColumn column) {
        return [&murala, column] { murala.Desk.SortByColumn(column); };
    };
    const struct {
        const char* Name;
        std::function<void()> Do;
    } steps[] = {
        {"sort by title", sort(lcTitle)},
        {"sort by file name", sort(lcFileName)},
        {"sort by path", sort(lcFolder)},
        {"sort by category", sort(lcCategory)},
        {"select all", press(aSelectAll)},
        {"display mode", press(aDisplayMirrorTiled)},
        {"next display mode", press(aDisplayNext)},
        {"transparent icons", press(aTransparentIcons)},
        {"tint style", [&] { murala.Editor.SetGammaStyle(All(), gsSolid); }},
        {"tint", [&] { murala.Editor.SetTint(All(), TTintEnd::Start, TChannel::Red, 7); }},
        {"colour", [&] { murala.Editor.SetDesktopColor(All(), 0x123456); }},
        {"effect", [&] { murala.Editor.SetEffect(All(), "Snow"); }},
        {"category", [&] { murala.Desk.SetCategory(All(), "Other"); }},
        {"titles", [&] { murala.Desk.Retitle(All()); }},
        {"refresh thumbnails", press(aRefreshThumbnail)},
        {"rename", [&] { murala.Desk.Rename(murala.Core.List.Item(5000), "New"); }},
        {"apply", press(aApply)},
        {"next", press(aNext)},
        {"other view", press(aNextView)},
        {"this view", press(aNextView)},
        {"large preview", press(aLargeSize)},
        {"tray menu", [&] { AllEntries(murala.Tray); }},
        {"add what is there", [&] { murala.Desk.AddFiles(Names()); }},
        {"remove one", [&] { RemoveFirst(1); }},
        {"remove half", [&] { RemoveFirst(RowCount / 2); }},
        {"remove all", [&] { RemoveFirst(murala.Core.List.Count()); }},
    };
    Pump(700); // the first preview is there
    TProbe probe;
    for (const auto& step : steps) {
        probe.TakeLongest();
        step.Do();
        Pump(80);
        EXPECT_LE(probe.TakeLongest(), LongestFreeze) << step.Name;
    }
    EXPECT_EQ(murala.Core.List.Count(), 0);
    EXPECT_TRUE(m_messages.Texts.empty());
}

INSTANTIATE_TEST_SUITE_P(Views, TenThousandRows, testing::Values(aViewList, aViewThumbnails));
