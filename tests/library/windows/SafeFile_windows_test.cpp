#include "uPlatformFile.h"
#include "uSafeFile.h"

#include "uTempFolder.h"

#include <atomic>
#include <thread>
#include <windows.h>

using namespace murala;

TEST(SafeFile, WaitsForAFileThatIsHeldForAMomentOnly)
{
    const TTempFolder folder;
    const std::string path = folder.Write("list", "old");
    // Others may read and write the file, but not replace it.
    HANDLE file =
        CreateFileW(NativePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_THROW(folder.Write("list", "new"), EFileError);
    EXPECT_EQ(ReadWholeFile(path), "old");
    EXPECT_EQ(folder.Count(), 1);
    std::thread release([file] {
        Sleep(50);
        CloseHandle(file);
    });
    EXPECT_NO_THROW(folder.Write("list", "new"));
    release.join();
    EXPECT_EQ(ReadWholeFile(path), "new");
}

// Opens every new file as soon as it is there, without letting others rename or delete it.
class TVirusScanner
{
public:
    explicit TVirusScanner(const std::string& path)
        : m_path(NativePath(path)), m_thread([this] { Run(); })
    {
    }
    TVirusScanner(const TVirusScanner&) = delete;
    TVirusScanner& operator=(const TVirusScanner&) = delete;
    ~TVirusScanner()
    {
        m_isEnding = true;
        m_thread.join();
    }
    int Scans() const { return m_scans; }

private:
    void Run()
    {
        while (!m_isEnding) {
            const HANDLE file =
                CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, OPEN_EXISTING, 0, nullptr);
            if (file != INVALID_HANDLE_VALUE) {
                ++m_scans;
                Sleep(60);
                CloseHandle(file);
                Sleep(60);
            }
        }
    }

    std::filesystem::path m_path;
    std::atomic<bool> m_isEnding = false;
    std::atomic<int> m_scans = 0;
    std::thread m_thread;
};

TEST(SafeFile, WaitsForAScannerThatHoldsTheNewFile)
{
    const TTempFolder folder;
    const std::string path = folder.Write("list", "old");
    const TVirusScanner scanner(path + ".new");
    int scans = 0;
    for (const TFlush flush : {TFlush::ToDisk, TFlush::ToSystemCache}) {
        // Until it has caught some of the files; a busy machine may let it sleep.
        scans += 2;
        for (int i = 0; i < 10 || (scanner.Scans() < scans && i < 2000); ++i) {
            const char letter = static_cast<char>('a' + i % 26);
            ASSERT_NO_THROW(ReplaceWholeFile(path, std::string(1 << 16, letter), flush));
            ASSERT_EQ(ReadWholeFile(path)[0], letter);
        }
    }
    EXPECT_GE(scanner.Scans(), scans);
}

TEST(SafeFile, ARenameThatIsRefusedForGoodSaysWhatTheSystemSays)
{
    const TTempFolder folder;
    const std::string from = folder.Write("other", "new"), to = folder.Write("list", "old");
    const HANDLE file = CreateFileW(NativePath(from).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(RenameOver(NativePath(from), NativePath(to), TFlush::ToDisk),
              std::error_code(ERROR_SHARING_VIOLATION, std::system_category()));
    CloseHandle(file);
}

TEST(SafeFile, OthersMayRenameAndDeleteAFileThatIsRead)
{
    const TTempFolder folder;
    const std::string path = folder.Write("picture", "whole"), renamed = folder.File("renamed");
    const TFile file = OpenFile(path, "rb");
    EXPECT_EQ(std::fgetc(file.get()), 'w');
    EXPECT_TRUE(MoveFileW(NativePath(path).c_str(), NativePath(renamed).c_str()));
    EXPECT_TRUE(DeleteFileW(NativePath(renamed).c_str()));
    char rest[5] = {};
    EXPECT_EQ(std::fread(rest, 1, sizeof rest, file.get()), 4U);
    EXPECT_STREQ(rest, "hole");
}

TEST(SafeFile, WaitsForAFileThatNobodyElseMayOpenForAMoment)
{
    const TTempFolder folder;
    const std::string path = folder.Write("list", "old");
    for (const bool isRead : {false, true}) {
        HANDLE file = CreateFileW(NativePath(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                  0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        std::thread release([file] {
            Sleep(50);
            CloseHandle(file);
        });
        if (isRead)
            EXPECT_EQ(ReadWholeFile(path), "new");
        else
            EXPECT_NO_THROW(folder.Write("list", "new"));
        release.join();
    }
    SetFileAttributesW(NativePath(path).c_str(), FILE_ATTRIBUTE_READONLY);
    const auto start = GetTickCount64();
    EXPECT_THROW(ReadWholeFile(folder.Path()), EFileError);
    try {
        folder.Write("list", "newer"); // some may in spite of the mark
    } catch (const EFileError&) {
    }
    EXPECT_LT(GetTickCount64() - start, 150U) << "waits for what no waiting brings";
    SetFileAttributesW(NativePath(path).c_str(), FILE_ATTRIBUTE_NORMAL);
}
