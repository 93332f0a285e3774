#include "uCloudFile.h"

namespace murala
{

// Services keep whole files here, or none.
bool IsKeptElsewhere(std::string_view /*path*/)
{
    return false;
}

} // namespace murala
