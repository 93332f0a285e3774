// The queue is a file of the user's: names, each ended by a null byte, which no name contains.
// Several processes may use it at the same time.
#include "uDescriptor.h"
#include "uFileQueue.h"
#include "uFolders.h"
#include "uPath.h"
#include "uProgramFolder.h"
#include "uSafeFile.h"

#include <unordered_set>

namespace murala
{

namespace
{

// In the user's folder, not beside the program: a portable copy and the installed one must find
// what the other has queued.
std::string QueueFile()
{
    return PathText(UserMuralaFolder() / "AddFiles");
}

std::vector<std::string> ReadNames(const std::string& file)
{
    std::vector<std::string> names;
    if (!FileExists(file))
        return names;
    const std::string text = ReadWholeFile(file);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\0', start), text.size());
        names.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

// Without a flush, which is slow: losing the queue in a power failure does no harm.
void WriteNames(const std::string& file, const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text.append(name).push_back('\0');
    ReplaceWholeFile(file, text, TFlush::ToSystemCache);
}

TDescriptor LockQueue(const std::string& file)
{
    std::error_code error;
    std::filesystem::create_directories(NativePath(FolderPart(file)), error);
    return LockFile(file + ".lock");
}

class TLinuxFileQueue : public TFileQueue
{
public:
    bool QueueFiles(const std::vector<std::string>& names) override
    try {
        const std::string file = QueueFile();
        const TDescriptor lock = LockQueue(file);
        if (!lock)
            return false;
        std::vector<std::string> queued = ReadNames(file);
        std::unordered_set<std::string> known(queued.begin(), queued.end());
        for (const std::string& name : names)
            if (known.insert(name).second)
                queued.push_back(name);
        WriteNames(file, queued);
        return true;
    } catch (const EFileError&) {
        return false;
    }

    std::vector<std::string> TakeQueuedFiles() override
    try {
        const std::string file = QueueFile();
        if (!FileExists(file))
            return {};
        const TDescriptor lock = LockQueue(file);
        if (!lock)
            return {};
        std::vector<std::string> names = ReadNames(file);
        std::error_code error;
        std::filesystem::remove(NativePath(file), error);
        return error ? std::vector<std::string>() : names;
    } catch (const EFileError&) {
        return {};
    }
};

} // namespace

std::unique_ptr<TFileQueue> NewFileQueue()
{
    return std::make_unique<TLinuxFileQueue>();
}

} // namespace murala
