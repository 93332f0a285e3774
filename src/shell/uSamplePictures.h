// The sample pictures that come with the program.
#pragma once

#include "uServices.h"

#include <string>
#include <vector>

namespace murala
{

// In the order of their names; empty when there are none. Throws EFileError when their folder
// cannot be read.
std::vector<std::string> SamplePictures(const TServices& services);

} // namespace murala
