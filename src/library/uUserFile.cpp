#include "uUserFile.h"

#include "uSafeFile.h"

namespace murala
{

void TUserFile::Read(const TWork& read)
try {
    read(m_path);
} catch (...) {
    m_isUnreadable = true;
    throw;
}

std::string TUserFile::Write(const TWork& write)
{
    std::string kept;
    if (m_isUnreadable)
        kept = KeepUnreadableFile(m_path);
    m_isUnreadable = false;
    write(m_path);
    return kept;
}

} // namespace murala
