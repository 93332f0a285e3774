#include "uUserFile.h"

#include "uFaultyFiles.h"
#include "uSettings.h"
#include "uTempFolder.h"

#include <new>

using namespace murala;

namespace
{

// A run of the program: reads its files, changes something and saves, twice.
class TRun
{
public:
    explicit TRun(const TTempFolder& folder)
        : m_listFile(folder.File("list")), m_settingsFile(folder.File("ini"))
    {
        Try([&] {
            m_settingsFile.Read([&](const std::string& path) {
                m_settings = LoadSettings(TIniFile::Load(path), {});
            });
        });
        Try([&] { m_listFile.Read([&](const std::string& path) { m_list.LoadFromFile(path); }); });
        for (const char* added : {"/new1", "/new2"}) {
            m_list.Add(std::make_unique<TMuWallpaper>(added));
            m_settings.Schedule.Frequency += 1;
            Save();
        }
    }

    int Problems() const { return m_problems; }

private:
    void Save()
    {
        Try([&] { m_listFile.Write([&](const std::string& path) { m_list.SaveToFile(path); }); });
        Try([&] {
            m_settingsFile.Write([&](const std::string& path) {
                TIniFile file = TIniFile::Load(path);
                SaveSettings(file, m_settings, {}, AllSaveFlags);
                file.Save(path);
            });
        });
    }

    template<class TStep>
    void Try(TStep step)
    try {
        step();
    } catch (const EFileError&) {
        ++m_problems;
    }

    TUserFile m_listFile, m_settingsFile;
    TMuWallpaperList m_list;
    TMuSettings m_settings;
    int m_problems = 0;
};

// Whether the file or a kept copy of it holds the text.
bool IsKept(const TTempFolder& folder, const std::string& name, const std::string& text)
{
    for (const char* ending : {"", ".unreadable", ".unreadable2"})
        if (const std::string path = folder.File(name + ending);
            FileExists(path) && ReadWholeFile(path).find(text) != std::string::npos)
            return true;
    return false;
}

} // namespace

TEST(UserFile, NothingIsLostWhicheverOperationFails)
{
    std::string listText;
    for (const char* name : {"/a", "/b"}) {
        TMuWallpaper item(name);
        item.Category = "/";
        listText += item.SaveToLine() + "\r\n";
    }
    for (const int badCount : {1, 3}) {
        int operations = 1, troubled = 0;
        for (int bad = 0; bad < operations; ++bad) {
            SCOPED_TRACE(testing::Message() << badCount << " from operation " << bad);
            const TTempFolder folder;
            folder.Write("list", listText);
            folder.Write("ini", "[Main]\r\nScheduleOn=5\r\n[ConvertList]\r\nmine=\"x\"\r\n");
            FileFaults = {.FirstBad = bad, .BadCount = badCount};
            const bool isTroubled = TRun(folder).Problems() > 0;
            troubled += isTroubled ? 1 : 0;
            operations = FileFaults.Done;
            FileFaults = {};
            EXPECT_TRUE(IsKept(folder, "list", listText));
            EXPECT_TRUE(IsKept(folder, "ini", "ScheduleOn=5"));
            EXPECT_TRUE(IsKept(folder, "ini", "mine=\"x\""));
            EXPECT_TRUE(isTroubled || IsKept(folder, "list", "/new2"));
            EXPECT_FALSE(FileExists(folder.File("list.new")));
        }
        EXPECT_GT(troubled, 20);
    }
}

TEST(UserFile, IsKeptOnceBeforeItIsWritten)
{
    const TTempFolder folder;
    TUserFile file(folder.Write("list", "old"));
    const auto write = [](const std::string& path) {
        ReplaceWholeFile(path, "new", TFlush::ToDisk);
    };
    EXPECT_THROW(file.Read([](const std::string&) { throw std::bad_alloc(); }), std::bad_alloc);
    // A reading that goes well does not make up for one that did not.
    file.Read([](const std::string& path) { ReadWholeFile(path); });
    EXPECT_EQ(file.Write(write), folder.File("list.unreadable"));
    EXPECT_EQ(file.Write(write), "");
    EXPECT_EQ(ReadWholeFile(folder.File("list.unreadable")), "old");
    EXPECT_EQ(ReadWholeFile(file.Path()), "new");
}

TEST(UserFile, WhatCannotBeCopiedIsMoved)
{
    const TTempFolder folder;
    const std::string path = folder.Write("list", "old");
    folder.Write("list.unreadable", "one before");
    // The file is looked for, then opened, then read.
    FileFaults = {.FirstBad = 2};
    const std::string kept = KeepUnreadableFile(path);
    FileFaults = {};
    EXPECT_EQ(kept, path + ".unreadable2");
    EXPECT_EQ(ReadWholeFile(kept), "old");
    EXPECT_FALSE(FileExists(path));
    EXPECT_EQ(KeepUnreadableFile(path), "");
}
