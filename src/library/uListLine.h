// The line format of the list file: fields divided by commas, each quoted, a quote inside doubled.
#pragma once

#include <string>
#include <string_view>

namespace murala
{

// Takes the first line off the text, without its line end. A quoted field may hold line ends, as
// file names may on Linux; only where its closing quote ends the field: a quote that was never
// closed does not swallow the lines after it.
std::string_view TakeListLine(std::string_view& text);

} // namespace murala
