#include "uCloudFile.h"

namespace murala
{

// On Linux cloud services keep whole files in their folders, or none.
bool IsKeptElsewhere(std::string_view /*path*/)
{
    return false;
}

} // namespace murala
