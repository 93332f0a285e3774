#include "uDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace murala
{

TDescriptor LockFile(const std::string& path)
{
    TDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    while (file && flock(file.Get(), LOCK_EX) != 0)
        if (errno != EINTR)
            return TDescriptor();
    return file;
}

} // namespace murala
