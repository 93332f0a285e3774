#include "uSafeFile.h"

#include "uPath.h"
#include "uPlatformFile.h"

#include <array>
#include <cerrno>
#include <new>
#include <optional>
#include <system_error>

namespace murala
{

namespace
{

namespace fs = std::filesystem;

[[noreturn]] void Fail(std::string_view what, const std::string& path, const std::error_code& why)
{
    throw EFileError("Cannot " + std::string(what) + " " + path + ": " + why.message());
}

std::error_code LastError()
{
    return {errno, std::generic_category()};
}

// Calls `take` with one block of the file after the other until that answers false.
template<typename TTake>
void ReadFile(const std::string& path, TTake take)
{
    const TFile file = OpenFile(path, "rb");
    std::array<char, 65536> buffer;
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get()))
        if (!take(std::string_view(buffer.data(), count)))
            return;
    if (std::ferror(file.get()))
        Fail("read", path, LastError());
}

// Whether the file is there and has exactly this content.
bool HoldsContent(const std::string& path, std::string_view content)
{
    std::error_code error;
    if (fs::file_size(NativePath(path), error) != content.size() || error)
        return false;
    try {
        ReadFile(path, [&](std::string_view block) {
            const bool isSame = content.starts_with(block);
            content.remove_prefix(isSame ? block.size() : 0);
            return isSame;
        });
        return content.empty();
    } catch (const EFileError&) {
        return false;
    }
}

void MoveFile(const std::string& from, const std::string& to)
{
    const fs::path target = NativePath(to);
    if (const std::error_code error = RenameOver(NativePath(from), target, TFlush::ToDisk))
        Fail("move", from, error);
    FlushFolder(target.parent_path());
}

// Where a link leads, also when nothing is there yet.
std::string FollowLinks(const std::string& path)
{
    constexpr int maxDepth = 40;
    fs::path target = NativePath(path);
    std::error_code error;
    for (int depth = 0; depth < maxDepth && fs::is_symlink(target, error); ++depth)
        target = target.parent_path() / fs::read_symlink(target, error);
    return PathText(target);
}

} // namespace

TFile OpenFile(const std::string& path, const char* mode)
{
    TFile file(OpenNamedFile(NativePath(path), mode));
    if (!file)
        Fail(mode[0] == 'r' ? "open" : "create", path, LastError());
    return file;
}

std::string ReadWholeFile(const std::string& path)
{
    std::string content;
    ReadFile(path, [&](std::string_view block) {
        content.append(block);
        return true;
    });
    return content;
}

TFileReplacement::TFileReplacement(const std::string& path, TFlush flush)
    : m_path(FollowLinks(path)), m_newPath(m_path + ".new"), m_flush(flush)
{
    const bool exists = FileExists(m_path);
    std::error_code ignored; // not every file system knows permissions
    // A rename would also replace devices, pipes and a file that may not be written.
    if (exists && !fs::is_regular_file(NativePath(m_path), ignored))
        Fail("replace", m_path, std::make_error_code(std::errc::operation_not_supported));
    if (exists)
        OpenFile(m_path, "r+b");
    m_file = OpenFile(m_newPath, "wb");
    if (exists)
        fs::permissions(NativePath(m_newPath),
                        fs::status(NativePath(m_path), ignored).permissions(), ignored);
}

TFileReplacement::~TFileReplacement()
{
    m_file.reset();
    try {
        std::error_code ignored;
        if (!m_newPath.empty())
            fs::remove(NativePath(m_newPath), ignored);
    } catch (const std::bad_alloc&) {
        // It lies there until the next one is written.
    }
}

void TFileReplacement::Write(const void* data, std::size_t size)
{
    if (std::fwrite(data, 1, size, m_file.get()) != size)
        Fail("write", m_path, LastError());
}

void TFileReplacement::Commit()
{
    const bool flushed =
        m_flush == TFlush::ToDisk ? FlushToDisk(m_file.get()) : std::fflush(m_file.get()) == 0;
    if (!flushed || std::fclose(m_file.release()) != 0)
        Fail("write", m_path, LastError());
    const fs::path target = NativePath(m_path);
    if (const std::error_code error = RenameOver(NativePath(m_newPath), target, m_flush))
        Fail("replace", m_path, error);
    m_newPath.clear();
    if (m_flush == TFlush::ToDisk)
        FlushFolder(target.parent_path());
}

void ReplaceWholeFile(const std::string& path, std::string_view content, TFlush flush)
{
    if (flush == TFlush::ToDisk && HoldsContent(path, content))
        return;
    TFileReplacement file(path, flush);
    file.Write(content.data(), content.size());
    file.Commit();
}

std::string KeepUnreadableFile(const std::string& path)
{
    if (!FileExists(path))
        return {};
    std::optional<std::string> content;
    try {
        content = ReadWholeFile(path);
    } catch (const EFileError&) {
        // It is moved.
    }
    for (int number = 1;; ++number) {
        std::string kept = path + ".unreadable" + (number > 1 ? std::to_string(number) : "");
        if (content && HoldsContent(kept, *content))
            return kept;
        if (FileExists(kept))
            continue;
        if (content)
            ReplaceWholeFile(kept, *content, TFlush::ToDisk);
        else
            MoveFile(path, kept);
        return kept;
    }
}

} // namespace murala
