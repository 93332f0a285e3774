#include "uIconView.h"

#include "uDesktopFakes.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

TEST(IconView, ListIsFoundLevelByLevelByItsExactClasses)
{
    struct TCase {
        std::vector<TFakeShellWindows::TWindow> BelowDesktop; // which is window 1
        TWindowId List;
    };
    constexpr const char *view = "SHELLDLL_DefView", *list = "SysListView32";
    const TCase cases[] = {
        {{{"progman", 1}, {"Progman", 1}, {view, 3}, {list, 4}}, 5},
        {{{"Progman", 1}, {"WorkerW", 1}, {"WorkerW", 1}, {view, 4}, {list, 5}}, 6},
        {{{"Progman", 1}, {"WorkerW", 1}, {list, 2}}, 0},
        {{{"Progman", 1}, {"Other", 2}, {view, 3}, {list, 4}}, 0},
        {{{"Other", 1}, {view, 2}, {list, 3}}, 0},
    };
    TFakeShellWindows shell;
    shell.HasShell = true;
    for (const TCase& each : cases) {
        shell.Windows = each.BelowDesktop;
        shell.Windows.insert(shell.Windows.begin(), {"#32769", 0});
        EXPECT_EQ(FindDesktopListView(shell), each.List) << &each - cases;
        EXPECT_THROW(GetTaskBarRect(shell), ETaskBarMissing) << "no window";
    }
    shell.Windows.push_back({"Shell_TrayWnd", 1});
    EXPECT_THROW(GetTaskBarRect(shell), ETaskBarMissing) << "no rectangle";
}

TEST(IconView, RegionIsReadInARegionalStyleThatIsTakenBack)
{
    TFakeShellWindows shell;
    EXPECT_FALSE(GetIconRegion(shell).has_value());
    SetIconsTransparent(shell);
    EXPECT_TRUE(shell.Log.empty()) << "nobody to ask";
    shell.HasShell = true;
    EXPECT_TRUE(GetIconRegion(shell).has_value());
    EXPECT_EQ(shell.Log,
              (std::vector<std::string>{"55 0 0", "54 512 4294967295", "region", "54 512 8256"}));
}

} // namespace
