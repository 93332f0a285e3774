#pragma once

#include <string>

namespace murala
{

// The file type that the session knows the extension by; empty when it knows none.
std::string MimeTypeOf(const std::string& extension);

} // namespace murala
