// A file of the user's whose content must not be lost.
#pragma once

#include <functional>
#include <string>
#include <utility>

namespace murala
{

// Remembers whether the file could be read. One that could not be is kept under another name before
// it is written, so that a disk or network that failed for a moment costs nothing:
//
//     TUserFile file(JoinPath(programFolder, ListFileName));
//     file.Read([&](const std::string& path) { list.LoadFromFile(path); });
//     ...
//     const std::string kept = file.Write([&](const std::string& path) { list.SaveToFile(path); });
//
// Every reading of the file whose failing would put something else (defaults) into the place of
// what it holds goes through Read.
class TUserFile
{
public:
    using TWork = std::function<void(const std::string& path)>;

    explicit TUserFile(std::string path) : m_path(std::move(path)) {}

    const std::string& Path() const { return m_path; }

    // `read` throws when the file cannot be read or understood; it takes a missing file for an
    // empty one. What it throws goes on to the caller.
    void Read(const TWork& read);
    // Gives the path under which an unreadable file was kept, mostly nothing. Throws EFileError
    // when it cannot be kept; `write` is not called then.
    std::string Write(const TWork& write);

private:
    std::string m_path;
    bool m_isUnreadable = false; // and not kept since
};

} // namespace murala
