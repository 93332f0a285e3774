#include "MuralaFixture.h"

using namespace murala;

namespace
{

class PreviewLoader : public TMuralaFixture
{
protected:
    TColor ColorAt(int y) const { return m_view.Preview.Row(y)[0] & 0xFFFFFF; }
    void Tick()
    {
        m_view.PreviewWait = 0;
        m_murala->Preview.Tick();
    }
};

} // namespace

TEST_F(PreviewLoader, ALargePictureIsLoadedInStepsAndAnotherOneFromItsBeginning)
{
    AddPictures(1);
    m_murala->Desk.AddFiles({Picture("Large.bmp", 1500, 2200, 0x0000FF)});
    EXPECT_EQ(m_view.PreviewText, "Loading...");
    EXPECT_GE(m_view.PreviewWait, 100) << "until the selection has settled";
    int steps = 0;
    for (; m_view.Preview.Width() == 0 && steps < 100; ++steps) {
        m_murala->Core.Listeners.Tell(&TListener::PreviewChanged, false); // waits for its end
        Tick();
    }
    EXPECT_GE(steps, 4);
    EXPECT_EQ(ColorAt(0), ColorToPixel(0x0000FF));
    EXPECT_EQ(ColorAt(10), ColorToPixel(0x0000FF));
    EXPECT_TRUE(m_view.Status.ends_with("Large.bmp - (1500x2200)")) << m_view.Status;
    m_murala->Preview.Release();
    Select(1);
    Tick();
    Tick();
    EXPECT_EQ(m_murala->Preview.Picture(20).Width(), 0) << "not before it is whole";
    Select(0);
    EXPECT_EQ(LoadPreview(), "");
    EXPECT_EQ(ColorAt(10), ColorToPixel(0x204060));
    m_murala->Core.Selection.Select(nullptr);
    EXPECT_EQ(LoadPreview(), "");
    EXPECT_EQ(m_view.Preview.Width(), 0);
    EXPECT_EQ(m_view.Status, "");
}

TEST_F(PreviewLoader, FollowsAFileThatWasWrittenAgainAndASettingThatWasChanged)
{
    AddPictures(1);
    EXPECT_EQ(LoadPreview(), "");
    m_murala->Preview.LookAgain();
    EXPECT_EQ(m_view.PreviewWait, 0);
    Picture("Picture0.bmp", 30, 20, 0x0000FF);
    const auto path = NativePath(Item(0).FileName());
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) +
                                               std::chrono::seconds(5));
    m_murala->Core.Listeners.Tell(&TListener::PreviewChanged, false);
    EXPECT_EQ(LoadPreview(), "");
    EXPECT_EQ(ColorAt(0), ColorToPixel(0x0000FF)) << "a changed setting finds it";
    EXPECT_TRUE(m_view.Status.ends_with("(30x20)"));
    m_view.PreviewWait = 0;
    m_murala->Editor.SetTint({}, TTintEnd::Start, TChannel::Red, 7);
    EXPECT_EQ(m_view.PreviewWait, 0) << "other items are not in it";
    m_murala->Editor.SetDisplayMode(Selected(), dmCentered);
    EXPECT_EQ(LoadPreview(), "");
    EXPECT_NE(ColorAt(0), ColorToPixel(0x0000FF)) << "the desktop's colour";
    std::filesystem::remove(path);
    m_murala->Preview.LookAgain();
    EXPECT_TRUE(LoadPreview().find("Picture0.bmp") != std::string::npos);
}

TEST_F(PreviewLoader, LoadsAndHoldsNothingWhileNobodySeesTheWindow)
{
    AddPictures(2);
    m_view.Visible = false;
    Tick();
    EXPECT_EQ(m_view.PreviewWait, 0);
    Select(0);
    EXPECT_EQ(m_view.PreviewWait, 0);
    m_murala->Applier.Apply(Item(0));
    EXPECT_EQ(m_murala->Preview.Picture(20).Width(), 0);
    m_view.Visible = true;
    m_murala->Applier.Apply(Item(0));
    EXPECT_GT(m_murala->Preview.Picture(20).Width(), 0) << "what was read to apply is held";
    Select(1);
    EXPECT_EQ(LoadPreview(), "");
    EXPECT_GT(m_view.Preview.Width(), 0);
    m_murala->Preview.Clear();
    EXPECT_EQ(m_view.Preview.Width(), 0);
    EXPECT_EQ(m_murala->Preview.Picture(20).Width(), 0);
}
