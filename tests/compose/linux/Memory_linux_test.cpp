#include "uJpegFile.h"

#include "../Pictures.h"

#include <fstream>
#include <new>

#include <sys/resource.h>

using namespace murala;

namespace
{

// No more memory than the process has, and a little.
class TMemoryLimit
{
public:
    explicit TMemoryLimit(rlim_t more)
    {
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        getrlimit(RLIMIT_AS, &m_before);
        const rlimit limit{pages * 4096 + more, m_before.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
    }
    TMemoryLimit(const TMemoryLimit&) = delete;
    TMemoryLimit& operator=(const TMemoryLimit&) = delete;
    ~TMemoryLimit() { setrlimit(RLIMIT_AS, &m_before); }

private:
    rlimit m_before{};
};

// Of the sanitizers' builds a process cannot be limited.
#ifdef __SANITIZE_ADDRESS__
constexpr bool CanBeLimited = false;
#else
constexpr bool CanBeLimited = true;
#endif

} // namespace

TEST(Memory, ItsLackIsNoFaultOfThePicture)
{
    if (!CanBeLimited)
        GTEST_SKIP();
    const TTempFolder folder;
    // Small files of pictures that take 192 MB: as libjpeg's coefficients, and as pixels.
    SaveJpegFile(TBitmap(1, 1), folder.File("a.jpg"), 90);
    std::string progressive =
        Bytes({0xFF, 0xD8, 0xFF, 0xDB, 0, 67, 0}) + std::string(64, '\1') +
        Bytes({0xFF, 0xC2, 0, 17, 8, 0x20, 0, 0x10, 0, 3, 1, 0x11, 0, 2, 0x11, 0, 3, 0x11, 0});
    for (const int table : {0x00, 0x10})
        progressive += Bytes({0xFF, 0xC4, 0, 20, table, 1}) + std::string(16, '\0');
    progressive += Bytes({0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 0, 0, 0, 0xFF, 0xD9});
    const std::string coefficients = folder.Write("b.jpg", progressive);
    const std::string pixels = folder.Write(
        "c.bmp", "BM" + Longs({0, 0, 54, 40, 8192, 6144, 1 | 24 << 16, 0, 0, 0, 0, 0, 0}) +
                     std::string(100, '\1'));
    EXPECT_EQ(ImageFileSize(coefficients), (TSize{4096, 8192}));
    const TMemoryLimit limit(rlim_t{64} << 20U);
    EXPECT_THROW(OpenImage(coefficients), std::bad_alloc);
    EXPECT_THROW(LoadImageFile(pixels), std::bad_alloc);
    EXPECT_NO_THROW(LoadImageFile(folder.File("a.jpg")));
}
