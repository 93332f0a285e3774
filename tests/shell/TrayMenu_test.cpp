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

// Captions, what is below in brackets, "*" for a check and "|" for a new column.
std::string Drawn(const TMenuItem& menu)
{
    std::string text;
    for (const TMenuItem& item : menu.Items) {
        text += (item.BarBreak ? "|" : " ") + item.Caption + (item.Checked ? "*" : "");
        if (!item.Items.empty())
            text += "[" + Drawn(item) + "]";
    }
    return text;
}

} // namespace

TEST(WallpaperMenu, CategoriesStandInTheOrderOfTheirFirstWallpapersAndDifferByCase)
{
    TMuWallpaperList list;
    Fill(list, {{"Sea", "a"}, {"art", "b & c"}, {"Sea", "&d"}, {"sea", "e"}, {"A&B", "f"}});
    EXPECT_EQ(Drawn(NewWallpaperMenu(list, 2, {true, 30})),
              " Sea*[ a &&d*] art[ b && c] sea[ e] A&B[ f]");
    EXPECT_EQ(Drawn(NewWallpaperMenu(list, 2, {false, 30})), " a b && c &&d* e f");
    EXPECT_EQ(Drawn(NewWallpaperMenu(list, -1, {true, 30})),
              " Sea[ a &&d] art[ b && c] sea[ e] A&B[ f]");
    const TMenuItem menu = NewWallpaperMenu(list, 2, {true, 30});
    EXPECT_EQ(menu.Name + menu.Caption + menu.Hint, "Wallpaper1Wallpaper");
    EXPECT_FALSE(menu.Checked);
    EXPECT_EQ(menu.Items[0].Name + menu.Items[0].Hint, "MainCategoryMenu");
    const TMenuItem& second = menu.Items[0].Items[1];
    EXPECT_EQ(second.Name + ' ' + second.Hint, "CategoryMenuItem2 WallpaperMenu2_1");
    EXPECT_EQ(WallpaperIndexOf(second), 2);
    EXPECT_EQ(WallpaperIndexOf(menu.Items[0]), -1);
}

TEST(WallpaperMenu, AHundredEntriesThenMoreBelow)
{
    TMuWallpaperList list;
    FillMany(list, 250, 1);
    for (const bool byCategory : {true, false}) {
        TMenuItem menu = NewWallpaperMenu(list, 249, {byCategory, 1000});
        const TMenuItem* level = byCategory ? &menu.Items[0] : &menu;
        // What the first holds, and what is left: the separator and "More..." come besides.
        const std::size_t sizes[] = {102, 102, 50};
        int index = 0;
        for (const std::size_t size : sizes) {
            ASSERT_EQ(level->Items.size(), size);
            EXPECT_EQ(WallpaperIndexOf(level->Items[0]), index);
            EXPECT_EQ(level->Items[0].Hint, "WallpaperMenu" + std::to_string(index) + "_0");
            if (size == 50)
                break;
            EXPECT_EQ(level->Items[100].Name, "MoreSeparatorCategoryMenuItem");
            EXPECT_TRUE(level->Items[100].IsSeparator());
            EXPECT_EQ(level->Items[101].Name, "MoreCategoryMenuItem");
            EXPECT_EQ(level->Items[101].Caption, "More...");
            EXPECT_TRUE(level->Items[101].Checked); // it leads to the current one
            EXPECT_FALSE(level->Items[99].Checked);
            level = &level->Items[101];
            index += 100;
        }
        EXPECT_TRUE(level->Items[49].Checked);
        AppendToWallpaperMenu(menu, std::vector<TMenuItem>(2));
        EXPECT_EQ(menu.Items[menu.Items.size() - 3].Name, "SpacerMenuItem");
    }
}

TEST(WallpaperMenu, AColumnHoldsAsManyRowsAsTheScreen)
{
    TMuWallpaperList list;
    FillMany(list, 130, 1);
    const TMenuItem menu = NewWallpaperMenu(list, -1, {false, 30});
    std::vector<std::size_t> breaks;
    for (std::size_t i = 0; i < menu.Items.size(); ++i)
        if (menu.Items[i].BarBreak)
            breaks.push_back(i);
    EXPECT_EQ(breaks, (std::vector<std::size_t>{30, 60, 90}));
    EXPECT_FALSE(menu.Items[101].Items[0].BarBreak);
    EXPECT_EQ(menu.Items[101].Items.size(), 30U);
    EXPECT_EQ(Drawn(NewWallpaperMenu(list, -1, {false, 0})).find('|'), std::string::npos);
}

TEST(WallpaperMenu, ChecksFollowTheCurrentWallpaperAndLeaveActionsAlone)
{
    TMuWallpaperList list;
    Fill(list, {{"A", "a"}, {"A", "-"}, {"B", "c"}});
    TMenuItem menu = NewWallpaperMenu(list, 0, {true, 30});
    TMenuItem action;
    action.Action = 3;
    action.Checked = true;
    action.Caption = "act";
    AppendToWallpaperMenu(menu, std::vector{action, action});
    EXPECT_EQ(Drawn(menu), " A*[ a* -] B[ c] - act* act*");
    UpdateTrayChecks(menu, 2);
    EXPECT_EQ(Drawn(menu), " A[ a -] B[ c*] - act* act*");
    UpdateTrayChecks(menu, -1);
    EXPECT_EQ(Drawn(menu), " A[ a -] B[ c] - act* act*");
    // A title of one dash is an entry, but is never checked.
    EXPECT_FALSE(menu.Items[0].Items[1].IsSeparator());
    UpdateTrayChecks(menu, 1);
    EXPECT_EQ(Drawn(menu), " A[ a -] B[ c] - act* act*");
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
    TMenuItem menu;
    menu.Items.resize(5);
    menu.Items[2].Caption = "-";
    EXPECT_EQ(MenuHeight(menu, {20, 9, 3}), 4 * 20 + 9 + 6);
}
