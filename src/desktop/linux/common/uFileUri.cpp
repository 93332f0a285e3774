#include "uFileUri.h"

#include "uGLib.h"

namespace murala
{

std::string FileUri(const std::string& path)
{
    const TGText uri(g_filename_to_uri(path.c_str(), nullptr, nullptr));
    return uri ? uri.get() : "";
}

bool IsText(const std::string& path)
{
    return g_utf8_validate(path.data(), static_cast<gssize>(path.size()), nullptr) != FALSE;
}

} // namespace murala
