#include "MuralaFixture.h"

using namespace murala;

namespace
{

class FirstStart : public TMuralaFixture
{
protected:
    void AddSampleFolder()
    {
        std::filesystem::create_directory(NativePath(m_folder.File("samples")));
        for (const char* name : {"samples/Sea.bmp", "samples/Hill.BMP", "samples/Sky.jpg"})
            Picture(name);
        m_folder.Write("samples/read me.txt", "");
        std::filesystem::create_directory(NativePath(m_folder.File("samples/Folder.jpg")));
    }
};

} // namespace

TEST_F(FirstStart, TouchesNothingOfTheDesktopBeforeTheUserAsks)
{
    AddSampleFolder();
    m_services.IconView.HasIcons = true;
    Restart();
    m_services.Desktop.OnScreens();
    for (int tick = 0; tick < 3; ++tick) {
        m_services.Clock.Time += 1;
        m_murala->Ticker.ScheduleTick();
        m_murala->Ticker.RefreshTick();
    }
    EXPECT_EQ(m_murala->Core.List.Count(), 0) << "samples come only when they are asked for";
    m_murala->Session.ImportQueuedFiles();
    m_murala->Desk.AddSamples();
    m_murala->Ticker.ScheduleTick();
    m_murala->Ticker.RefreshTick();
    LoadPreview();
    m_murala->Close();
    EXPECT_EQ(m_services.Touched(), std::vector<std::string>());
    EXPECT_TRUE(m_view.Messages.empty());
    Apply(0);
    EXPECT_FALSE(m_services.Touched().empty()) << "touching is noticed";
}

TEST_F(FirstStart, TheSamplesArePicturesInTheOrderOfTheirNames)
{
    EXPECT_FALSE(m_murala->Desk.HasSamples());
    EXPECT_EQ(m_murala->Desk.AddSamples(), 0);
    AddSampleFolder();
    EXPECT_TRUE(m_murala->Desk.HasSamples());
    EXPECT_EQ(m_murala->Desk.AddSamples(), 3);
    EXPECT_EQ(Item(0).Title, "Hill");
    EXPECT_EQ(Item(1).Title, "Sea");
    EXPECT_EQ(Item(2).Title, "Sky");
    EXPECT_EQ(SelectedRows(), std::vector<int>{2});
    EXPECT_EQ(CurrentIndex(), -1) << "none of them is on the desktop";
    EXPECT_EQ(m_murala->Desk.AddSamples(), 0) << "each of them once";
    EXPECT_NE(m_murala->Core.Settings.Memory.WallpaperPath, m_folder.File("samples/"));
    Restart();
    EXPECT_EQ(m_murala->Core.List.Count(), 3);
}

TEST_F(FirstStart, SamplesThatCannotBeAddedFailAsAnyPicture)
{
    m_folder.Write("samples", "");
    EXPECT_FALSE(m_murala->Desk.HasSamples());
    EXPECT_THROW(m_murala->Desk.AddSamples(), EFileError);
    EXPECT_EQ(m_murala->Core.List.Count(), 0);
    EXPECT_FALSE(m_murala->Core.Pauses.IsPaused());

    std::filesystem::remove(NativePath(m_folder.File("samples")));
    AddSampleFolder();
    m_view.WorkEndsAt = 0;
    EXPECT_EQ(m_murala->Desk.AddSamples(), 0) << "the user has ended it";
    EXPECT_EQ(m_murala->Core.List.Count(), 0);
    m_view.WorkEndsAt = 1 << 30;
    m_murala->Desk.AddSamples();
    std::filesystem::remove(NativePath(Item(2).FileName()));
    Select(2);
    EXPECT_NE(LoadPreview(), "");
}
