#include "uWxFont.h"

#include "uWindowSystem.h"
#include "uWxBitmap.h"
#include "uWxText.h"

#include <algorithm>

#include <wx/fontdata.h>

namespace murala
{

wxFont ToWxFont(const TMuFont& font)
{
    return wxFontInfo(std::clamp(font.Size, 1, 1000))
        .FaceName(DrawnFace(ToWx(font.Name)))
        .Bold(font.Bold)
        .Italic(font.Italic)
        .Underlined(font.Underline)
        .Strikethrough(font.Strikeout);
}

TMuFont FromWxFont(const wxFontData& chosen, const TMuFont& before)
{
    const wxFont from = chosen.GetChosenFont();
    TMuFont font = before;
    if (from.GetFaceName() != DrawnFace(ToWx(before.Name)))
        font.Name = from.GetFaceName().utf8_string();
    font.Size = from.GetPointSize();
    font.Bold = from.GetWeight() > wxFONTWEIGHT_MEDIUM;
    font.Italic = from.GetStyle() != wxFONTSTYLE_NORMAL;
    if (!HasFontEffects())
        return font;
    font.Underline = from.GetUnderlined();
    font.Strikeout = from.GetStrikethrough();
    font.Color = FromWxColour(chosen.GetColour());
    return font;
}

} // namespace murala
