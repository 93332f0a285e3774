#include "uWxText.h"

#include "uText.h"

#include <wx/control.h>

namespace murala
{

wxString ToWx(std::string_view text)
{
    const std::string shown = DisplayText(text);
    return wxString::FromUTF8(shown.data(), shown.size());
}

wxString PlainCaption(std::string_view caption)
{
    return wxControl::RemoveMnemonics(ToWx(caption));
}

} // namespace murala
