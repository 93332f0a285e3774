// Finds files that come with the program.
#pragma once

#include "uServices.h"

#include <optional>
#include <string>
#include <string_view>

namespace murala
{

// Looks for a file or a folder, such as "samples" or "help/index.html", in the program folder,
// beside the program file, and where an installed program has it.
std::optional<std::string> FindShippedFile(const TServices& services, std::string_view name);

} // namespace murala
