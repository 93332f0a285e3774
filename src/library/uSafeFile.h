// Reading and replacing whole files.
#pragma once

#include "uFileError.h"

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace murala
{

struct TFileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using TFile = std::unique_ptr<std::FILE, TFileCloser>;

// `mode` as for fopen; the name is UTF-8. Throws EFileError.
TFile OpenFile(const std::string& path, const char* mode);

// Throws EFileError; a folder is an error, too.
std::string ReadWholeFile(const std::string& path);

enum class TFlush {
    ToDisk,        // what must survive a power failure: the list, the settings
    ToSystemCache, // what can be made again: pictures
};

// Writes a file beside `path` and puts it in the place of `path` with one rename when Commit is
// called. Until then, and after any error, `path` is as it was. A reader sees the old file or the
// new one, whole. A link is followed; permissions are kept.
class TFileReplacement
{
public:
    // Throws EFileError.
    TFileReplacement(const std::string& path, TFlush flush);
    TFileReplacement(const TFileReplacement&) = delete;
    TFileReplacement& operator=(const TFileReplacement&) = delete;
    // Removes the new file when it was not committed.
    ~TFileReplacement();

    // Both throw EFileError.
    void Write(const void* data, std::size_t size);
    void Commit();

private:
    std::string m_path;
    std::string m_newPath;
    TFlush m_flush;
    TFile m_file;
};

// Leaves a file that must survive a power failure alone when it has this content already.
void ReplaceWholeFile(const std::string& path, std::string_view content, TFlush flush);

// Before a file that could not be read or understood is written again: keeps a copy beside it, as
// "NAME.unreadable" or, where another one lies there, with a number from 2 behind it. A file that
// cannot be copied is itself moved there. Gives the new path, nothing when there is no file. Throws
// EFileError.
std::string KeepUnreadableFile(const std::string& path);

} // namespace murala
