#include "uIconView.h"

#include "uDesktopFakes.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

// A tree of windows: each has a class and a parent; the number of a window is its place from 1 on.
struct TWindowTree : TShellWindows {
    struct TWindow {
        const char* Class;
        TWindowId Parent;
    };
    std::vector<TWindow> Windows{{"#32769", 0}};
    bool SiblingsWrap = false;
    std::intptr_t LabelColor = 0xC0C0C0;
    std::intptr_t ItemCount = 3;
    std::vector<std::string> Log;

    TWindowId Add(const char* name, TWindowId parent)
    {
        Windows.push_back({name, parent});
        return Windows.size();
    }
    TWindowId Next(TWindowId after, TWindowId parent) const
    {
        for (TWindowId window = after + 1; window <= Windows.size(); window++)
            if (Windows[window - 1].Parent == parent)
                return window;
        return 0;
    }

    TWindowId DesktopWindow() override { return 1; }
    TWindowId FirstChild(TWindowId window) override { return Next(window, window); }
    TWindowId NextSibling(TWindowId window) override
    {
        const TWindowId parent = Windows[window - 1].Parent;
        const TWindowId next = Next(window, parent);
        return next == 0 && SiblingsWrap ? FirstChild(parent) : next;
    }
    std::string ClassName(TWindowId window) override { return Windows[window - 1].Class; }
    std::optional<TRect> WindowRect(TWindowId) override { return std::nullopt; }
    std::vector<TRect> WindowRegion(TWindowId) override
    {
        Log.emplace_back("region");
        return {{1, 2, 3, 4}};
    }
    std::intptr_t Send(TWindowId, unsigned message, std::uintptr_t wParam,
                       std::intptr_t lParam) override
    {
        Log.push_back(std::to_string(message - 0x1000) + " " + std::to_string(wParam) + " " +
                      std::to_string(lParam));
        return message == 0x1025 ? LabelColor : message == 0x1004 ? ItemCount : 0x2040;
    }
    void Update(TWindowId) override { Log.emplace_back("update"); }
};

TWindowId AddIconList(TWindowTree& tree, const char* top)
{
    const TWindowId view = tree.Add("SHELLDLL_DefView", tree.Add(top, 1));
    return tree.Add("SysListView32", view);
}

TEST(IconView, OnlyDirectChildrenOfExactlyTheClassAreFound)
{
    TWindowTree tree;
    tree.Add("progman", 1);
    const TWindowId list = AddIconList(tree, "Progman");
    EXPECT_EQ(FindDesktopListView(tree), list);
    EXPECT_EQ(FindChildWindowByClass(tree, 1, "SysListView32"), 0U);
    EXPECT_EQ(FindChildWindowByClass(tree, 0, "Progman"), 0U);
    tree.SiblingsWrap = true;
    EXPECT_EQ(FindTaskBar(tree), 0U) << "a chain that comes round must end";
    EXPECT_THROW(GetTaskBarRect(tree), ETaskBarMissing) << "no window";
    tree.Add("Shell_TrayWnd", 1);
    EXPECT_THROW(GetTaskBarRect(tree), ETaskBarMissing) << "no rectangle";
}

TEST(IconView, IconsThatMovedToAWorkerWindowAreFoundThere)
{
    TWindowTree tree;
    tree.Add("Progman", 1);
    tree.Add("WorkerW", 1);
    tree.SiblingsWrap = true;
    EXPECT_EQ(FindDesktopListView(tree), 0U);
    const TWindowId list = AddIconList(tree, "WorkerW");
    EXPECT_EQ(FindDesktopListView(tree), list);
}

TEST(IconView, LabelsAreSetOnceAndPaintedAgain)
{
    TWindowTree tree;
    AddIconList(tree, "Progman");
    SetIconsTransparent(tree);
    EXPECT_EQ(tree.Log,
              (std::vector<std::string>{"37 0 0", "38 0 4294967295", "4 0 0", "21 0 2", "update"}));
    tree.Log.clear();
    tree.LabelColor = static_cast<std::intptr_t>(NoColor);
    SetIconsTransparent(tree);
    EXPECT_EQ(tree.Log, std::vector<std::string>{"37 0 0"});

    tree.Log.clear();
    tree.LabelColor = -1; // as a 32-bit answer arrives in a 64-bit program
    SetIconsTransparent(tree);
    EXPECT_EQ(tree.Log.size(), 1U);

    TFakeDesktop desktop;
    desktop.Color = 0x336699;
    tree.ItemCount = 0;
    tree.Log.clear();
    SetIconsOpaque(tree, desktop);
    EXPECT_EQ(tree.Log,
              (std::vector<std::string>{"37 0 0", "38 0 3368601", "4 0 0", "21 0 -1", "update"}));
    tree.LabelColor = 0x336699;
    tree.Log.clear();
    SetIconsOpaque(tree, desktop);
    EXPECT_EQ(tree.Log.size(), 1U);
}

TEST(IconView, RegionIsReadInARegionalStyleThatIsTakenBack)
{
    TWindowTree tree;
    EXPECT_FALSE(GetIconRegion(tree).has_value());
    EXPECT_TRUE(tree.Log.empty());
    AddIconList(tree, "Progman");
    ASSERT_TRUE(GetIconRegion(tree).has_value());
    EXPECT_EQ(tree.Log,
              (std::vector<std::string>{"55 0 0", "54 512 4294967295", "region", "54 512 8256"}));
}

TEST(IconView, WithoutIconListNothingIsSent)
{
    TWindowTree tree;
    TFakeDesktop desktop;
    desktop.Color = 5;
    SetIconsOpaque(tree, desktop);
    SetIconsTransparent(tree);
    EXPECT_EQ(GetIconTextBackColor(tree), 0U);
    EXPECT_TRUE(tree.Log.empty());
}

} // namespace
