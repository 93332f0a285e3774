#include "uDateNames.h"

#include "uTempFolder.h"

#include <cstdlib>

using namespace murala;

namespace
{

// Languages of the test's own, as only few machines have them all.
class DateNames : public testing::Test
{
protected:
    DateNames() { setenv("LOCPATH", m_folder.Path().c_str(), 1); }
    ~DateNames() override { unsetenv("LOCPATH"); }

    void SetUp() override
    {
        std::string command;
        for (const char* language :
             {"de_DE.UTF-8", "de_DE.ISO-8859-1", "ja_JP.UTF-8", "ar_SA.UTF-8", "ru_RU.UTF-8"}) {
            const std::string name = language;
            const std::size_t dot = name.find('.');
            command += "localedef -i " + name.substr(0, dot) + " -f " + name.substr(dot + 1) + " " +
                       m_folder.File(name) + " 2>/dev/null & ";
        }
        // Together, for each takes seconds.
        if (std::system((command + "wait").c_str()) != 0 || m_folder.Count() != 5)
            GTEST_SKIP() << "the languages' sources are missing (package locales)";
    }

private:
    TTempFolder m_folder;
};

std::string Text(const char* format, const char* language)
{
    const TDateTime date = *EncodeDateTime({2026, 3, 8, 15, 4, 5}); // a Sunday
    return FormatDate(format, date, LanguageDateNames(language));
}

} // namespace

TEST_F(DateNames, AreInTheLanguagesOwnScript)
{
    EXPECT_EQ(Text("dddd ddd mmmm yyyy mmm", "de_DE.UTF-8"),
              "Sonntag So M\xC3\xA4rz 2026 M\xC3\xA4r");
    EXPECT_EQ(Text("mmmm", "de_DE.ISO-8859-1"), "M\xC3\xA4rz");
    EXPECT_EQ(Text("mm/yyyy", "de_DE.UTF-8"), "03.2026");
    unsetenv("LC_ALL");
    setenv("LC_TIME", "de_DE.ISO-8859-1", 1);
    setenv("LC_PAPER", "xx_XX.UTF-8", 1); // is not there
    EXPECT_EQ(Text("mmmm", ""), "M\xC3\xA4rz");
    unsetenv("LC_PAPER");
    unsetenv("LC_TIME");
    EXPECT_EQ(Text("c", "de_DE.UTF-8"), "08.03.2026 15:04:05");
    EXPECT_EQ(Text("dddd ddd mmmm", "ja_JP.UTF-8"),
              "\xE6\x97\xA5\xE6\x9B\x9C\xE6\x97\xA5 \xE6\x97\xA5 3\xE6\x9C\x88");
    EXPECT_EQ(Text("ddddd", "ja_JP.UTF-8"), "2026\xE5\xB9\xB4"
                                            "03\xE6\x9C\x88"
                                            "08\xE6\x97\xA5");
    EXPECT_EQ(Text("mmmm", "ar_SA.UTF-8"), "\xD9\x85\xD8\xA7\xD8\xB1\xD8\xB3");
    EXPECT_EQ(Text("mmmm", "ru_RU.UTF-8"),
              "\xD0\x9C\xD0\xB0\xD1\x80\xD1\x82"); // as it stands alone
    EXPECT_EQ(LanguageDateNames("de_DE.UTF-8").ShortDays.front(), "Mo");
    EXPECT_EQ(Text("dddd", "no_SUCH"), "Sunday");
}
