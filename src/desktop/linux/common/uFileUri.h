// Paths on their way into settings and messages.
#pragma once

#include <string>

namespace murala
{

// The file's "file:" address; empty when the path is not absolute.
std::string FileUri(const std::string& path);

// Whether settings and messages, whose strings are UTF-8, can name the file as it is.
bool IsText(const std::string& path);

} // namespace murala
