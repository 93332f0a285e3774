#include "MuralaFixture.h"

#include "uText.h"

using namespace murala;

using LibraryDesk = TMuralaFixture;

namespace
{

// A view: whenever it is told something, everything that it could ask for is there.
struct TStrictView : TListener {
    explicit TStrictView(TCore& core) : Core(core) { Subscription = core.Listeners.Listen(*this); }
    void RowsChanged() override { Look(); }
    void SelectionChanged() override { Look(); }
    void ItemsChanged(const TItems&) override { Look(); }
    void CurrentChanged(TCurrentChange) override { Look(); }
    void Look()
    {
        Rows = 0;
        for (int row = 0; row < Core.List.Count(); ++row)
            Rows += Core.List.Item(row).Title.empty() ? 0 : 1;
        for (const TMuWallpaper* item : Core.Selection.Items())
            EXPECT_GE(Core.List.IndexOf(item), 0);
        if (Core.Selection.Current() != nullptr) {
            EXPECT_GE(Core.Selection.CurrentIndex(), 0);
        }
    }
    TCore& Core;
    int Rows = 0;
    TSubscription Subscription;
};

} // namespace

TEST_F(LibraryDesk, AddsEachFileOnceAndKeepsItForTheNextStart)
{
    m_murala->Core.Settings.Preferences.DefaultTransparentIcons = true;
    AddPictures(2);
    EXPECT_EQ(m_murala->Desk.AddFiles({Item(0).FileName()}), 0);
    EXPECT_EQ(SelectedRows(), std::vector<int>{1});
    Restart();
    ASSERT_EQ(m_murala->Core.List.Count(), 2);
    EXPECT_EQ(Item(0).Title, "Picture0");
    EXPECT_EQ(Item(0).DisplayMode, dmStretched);
    EXPECT_TRUE(Item(0).TransparentIcons);
    EXPECT_EQ(Item(0).Category, UpperAscii(m_services.ProgramFolder));
    EXPECT_EQ(CurrentIndex(), 0);
}

TEST_F(LibraryDesk, RemovingSelectsWhatMovedUpAndFollowsTheCurrentOne)
{
    AddPictures(5);
    Apply(4);
    m_murala->Core.Selection.SelectRows({2, 3}, 3);
    m_murala->Thumbnails.GetThumbnail(Item(2));
    m_murala->Desk.RemoveSelected();
    EXPECT_TRUE(m_murala->Core.List.LoadedThumbnails.empty());
    EXPECT_EQ(Titles(), "014");
    EXPECT_EQ(SelectedRows(), std::vector<int>{2});
    EXPECT_EQ(CurrentIndex(), 2);
    m_murala->Core.Selection.SelectAll();
    m_view.WorkEndsAt = 1;
    m_murala->Desk.RemoveSelected();
    EXPECT_EQ(Titles(), "14") << "what the user does not wait for stays";
    m_view.WorkEndsAt = 2;
    m_murala->Core.Selection.SelectAll();
    m_murala->Desk.RemoveSelected();
    EXPECT_TRUE(SelectedRows().empty());
    EXPECT_EQ(CurrentIndex(), -1);
    Restart();
    EXPECT_EQ(m_murala->Core.List.Count(), 0);
}

TEST_F(LibraryDesk, ViewsKnowTheRowsBeforeAFailingSaveShowsItsMessage)
{
    AddPictures(3);
    TStrictView view(m_murala->Core);
    Block(ListFileName);
    int rowsInMessage = -1;
    m_view.OnMessage = [&] { rowsInMessage = view.Rows; };
    Apply(1);
    m_murala->Desk.RemoveSelected();
    EXPECT_EQ(rowsInMessage, 2);
}

TEST_F(LibraryDesk, SortingTwiceInvertsAndKeepsSelectionAndCurrent)
{
    AddPictures(3);
    Apply(1);
    struct : TListener {
        void RowsChanged() override { throw std::runtime_error("a view that fails"); }
        void SelectionChanged() override { ++Told; }
        int Told = 0;
    } view;
    const TSubscription subscription = m_murala->Core.Listeners.Listen(view);
    m_murala->Desk.SortByColumn(lcTitle);
    EXPECT_EQ(view.Told, 1) << "the rows are others";
    m_murala->Core.Selection.SelectRows({1}, 1);
    EXPECT_EQ(view.Told, 2) << "a click on what is selected looks at its picture again";
    EXPECT_EQ(m_murala->Core.Status.Problem(), "a view that fails");
    m_murala->Desk.SortByColumn(lcTitle);
    EXPECT_EQ(Titles(), "210");
    EXPECT_EQ(CurrentIndex(), 1);
    m_murala->Desk.SortByColumn(lcFileName);
    EXPECT_EQ(Titles(), "210") << "another column keeps the direction";
    EXPECT_EQ(SelectedRows(), std::vector<int>{1});
}

TEST_F(LibraryDesk, TheFocusedRowIsTheOneThatCommandsMean)
{
    AddPictures(4);
    TSelection& selection = m_murala->Core.Selection;
    selection.SelectRows({1, 3}, 3);
    EXPECT_EQ(selection.Row(), 3);
    selection.SelectRows({1, 3}, 0); // focused, not selected
    EXPECT_EQ(selection.Row(), 1);
    EXPECT_EQ(selection.FocusedRow(), 0);
    m_murala->Desk.SortByColumn(lcTitle);
    m_murala->Desk.SortByColumn(lcTitle);
    EXPECT_EQ(selection.Rows(), (std::vector<int>{0, 2})) << "the same items in other places";
    selection.Select(nullptr);
    EXPECT_EQ(selection.Item(), nullptr);
}
