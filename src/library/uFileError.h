// What goes wrong with files and their names.
#pragma once

#include <stdexcept>

namespace murala
{

// What was tried, on which file, and the system's reason.
class EFileError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace murala
