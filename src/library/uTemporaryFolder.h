#pragma once

#include <string>

namespace murala
{

// A folder for files that need not stay, which nobody but the user can write into; made when it is
// missing. With a trailing divider. Throws EFileError when there is no such folder.
std::string TemporaryFolder();

} // namespace murala
