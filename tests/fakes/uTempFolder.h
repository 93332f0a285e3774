// A folder of a test's own, removed with everything in it.
#pragma once

#include "uPath.h"
#include "uSafeFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

namespace murala
{

class TTempFolder
{
public:
    TTempFolder()
    {
        const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = test->name();
        std::ranges::replace(name, '/', '-'); // in the names of parameterised tests
        m_folder = std::filesystem::temp_directory_path() /
                   NativePath("murala-" + name + "-" + std::to_string(ticks));
        std::filesystem::create_directories(m_folder);
    }
    TTempFolder(const TTempFolder&) = delete;
    TTempFolder& operator=(const TTempFolder&) = delete;
    ~TTempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    std::string Path() const { return PathText(m_folder); }
    std::string File(std::string_view name) const { return JoinPath(Path(), name); }
    // The new file's path.
    std::string Write(std::string_view name, std::string_view content) const
    {
        ReplaceWholeFile(File(name), content, TFlush::ToSystemCache);
        return File(name);
    }
    // How many files and folders lie in it.
    std::ptrdiff_t Count() const
    {
        return std::distance(std::filesystem::directory_iterator(m_folder), {});
    }

private:
    std::filesystem::path m_folder;
};

} // namespace murala
