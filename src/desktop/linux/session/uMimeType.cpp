#include "uMimeType.h"

#include "uGLib.h"

namespace murala
{

std::string MimeTypeOf(const std::string& extension)
{
    gboolean uncertain = FALSE;
    const TGText content(g_content_type_guess(("x" + extension).c_str(), nullptr, 0, &uncertain));
    if (uncertain != FALSE || g_content_type_is_unknown(content.get()) != FALSE)
        return "";
    const TGText mimeType(g_content_type_get_mime_type(content.get()));
    return mimeType ? mimeType.get() : "";
}

} // namespace murala
