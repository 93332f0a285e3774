#include "uTrayMenu.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

// One wallpaper for each pair of category and title.
void Fill(TMuWallpaperList& list,
          const std::vector<std::pair<std::string, std::string>>& wallpapers)
{
    for (const auto& [category, title] : wallpapers) {
        auto item = std::make_unique<TMuWallpaper>("/" + std::to_string(list.Count()) + ".bmp");
        item->Category = category;
        item->Title = title;
        list.Add(std::move(item));
    }
}

void FillMany(TMuWallpaperList& list, int count, int categories)
{
    std::vector<std::pair<std::string, std::string>> wallpapers;
    for (int i = 0; i < count; ++i)
        wallpapers.emplace_back("C" + std::to_string(i % categories), "T" + std::to_string(i));
    Fill(list, wallpapers);
}

TMenuBelow Wallpapers(int first = 0)
{
    return {TMenuBelow::Wallpapers, {}, first};
}

// Captions, what is below in brackets, "*" for a check and "|" for a new column; "-" for a
// separator.
std::string Drawn(const TMuWallpaperList& list, int current, const TWallpaperMenuOptions& options,
                  const TMenuBelow& menu = Wallpapers())
{
    const TMuWallpaper* item = current >= 0 ? &list.Item(current) : nullptr;
    std::string text;
    for (const TMenuEntry& entry : WallpaperEntries(list, item, menu, options)) {
        text += (entry.BarBreak ? "|" : " ") + (entry.IsSeparator() ? "-" : entry.Caption) +
                (entry.Checked ? "*" : "");
        if (entry.MenuBelow() != nullptr)
            text += "[" + Drawn(list, current, options, *entry.MenuBelow()) + "]";
    }
    return text;
}

} // namespace

TEST(WallpaperMenu, CategoriesStandInTheOrderOfTheirFirstWallpapersAndDifferByCase)
{
    TMuWallpaperList list;
    Fill(list, {{"Sea", "a"}, {"art", "b & c"}, {"Sea", "&d"}, {"sea", ""}, {"A&B", "f"}});
    EXPECT_EQ(Drawn(list, 2, {true, 30}), " Sea*[ a &&d*] art[ b && c] sea[  ] A&&B[ f]");
    EXPECT_EQ(Drawn(list, 2, {true, 30, false}), " Sea[ a &&d*] art[ b && c] sea[  ] A&&B[ f]");
    EXPECT_EQ(Drawn(list, 2, {false, 30}), " a b && c &&d*   f");
    EXPECT_EQ(Drawn(list, -1, {true, 30}), " Sea[ a &&d] art[ b && c] sea[  ] A&&B[ f]");
    const TMenuEntries sea = WallpaperEntries(list, nullptr, {TMenuBelow::Category, "Sea"}, {});
    EXPECT_EQ(sea.at(1).Target, TMenuTarget(TMenuWallpaper{list.Item(2).Id()}));
}

TEST(WallpaperMenu, AHundredEntriesThenMoreBelow)
{
    TMuWallpaperList list;
    FillMany(list, 250, 1);
    for (const TMenuBelow& top : {Wallpapers(), TMenuBelow{TMenuBelow::Category, "C0"}}) {
        TMenuBelow menu = top;
        for (const std::size_t size : {102, 102, 50}) {
            const TMenuEntries entries =
                WallpaperEntries(list, &list.Item(249), menu, {false, 1000});
            ASSERT_EQ(entries.size(), size);
            EXPECT_EQ(entries[0].Caption, "T" + std::to_string(menu.First));
            EXPECT_EQ(entries[49].Checked, size == 50);
            if (size == 50)
                break;
            EXPECT_TRUE(entries[100].IsSeparator());
            EXPECT_EQ(entries[101].Caption, "More...");
            EXPECT_TRUE(entries[101].Checked); // it leads to the current one
            menu = *entries[101].MenuBelow();
        }
    }
    EXPECT_TRUE(WallpaperEntries(list, nullptr, Wallpapers(300), {false}).empty());
}

TEST(WallpaperMenu, AColumnHoldsAsManyRowsAsTheScreen)
{
    TMuWallpaperList list;
    FillMany(list, 130, 1);
    for (const int first : {0, 100}) {
        std::vector<std::size_t> breaks;
        const TMenuEntries entries =
            WallpaperEntries(list, nullptr, Wallpapers(first), {false, 30});
        for (std::size_t i = 0; i < entries.size(); ++i)
            if (entries[i].BarBreak)
                breaks.push_back(i);
        EXPECT_EQ(breaks,
                  first == 0 ? (std::vector<std::size_t>{30, 60, 90}) : std::vector<std::size_t>());
    }
    EXPECT_EQ(Drawn(list, -1, {false, 0}).find('|'), std::string::npos);
}

TEST(TrayMenuPlace, FollowsTheTaskBarsEdge)
{
    constexpr TSize screen{1000, 800};
    struct TCase {
        std::optional<TRect> TaskBar;
        TTaskBarEdge Edge;
        TPoint Place;
    };
    const TCase cases[] = {
        {TRect{-2, 770, 1002, 802}, TTaskBarEdge::Bottom, {492, 670}},
        {TRect{-2, -2, 1002, 30}, TTaskBarEdge::Top, {492, 30}},
        {TRect{-2, -2, 60, 802}, TTaskBarEdge::Left, {492, 400}},
        {TRect{940, -2, 1002, 802}, TTaskBarEdge::Right, {492, 400}},
        {TRect{0, 770, 1000, 800}, TTaskBarEdge::None, {492, 400}},
        {TRect{-2, 0, 60, 800}, TTaskBarEdge::Left, {492, 400}},
        {std::nullopt, TTaskBarEdge::None, {492, 400}},
    };
    for (const TCase& each : cases) {
        if (each.TaskBar) {
            EXPECT_EQ(TaskBarEdge(*each.TaskBar, screen), each.Edge);
        }
        EXPECT_EQ(MenuPlace({500, 400}, each.TaskBar, screen, 100), each.Place);
    }
    TMenuEntries menu(5, {.Caption = "a", .Target = TMenuBelow()});
    menu[2] = {};
    EXPECT_EQ(MenuHeight(menu, {20, 9, 3}), 4 * 20 + 9 + 6);
}
