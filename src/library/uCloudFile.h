// Files that a cloud service keeps elsewhere.
#pragma once

#include <string_view>

namespace murala
{

// Whether reading the file would fetch it from elsewhere, which may take long and cost money.
bool IsKeptElsewhere(std::string_view path);

} // namespace murala
