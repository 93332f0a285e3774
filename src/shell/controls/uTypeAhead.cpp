#include "uTypeAhead.h"

#include "uWxText.h"

#include <algorithm>

#include <wx/stopwatch.h>

namespace murala
{

namespace
{

// Milliseconds between two letters of one word.
constexpr int TypingPause = 1000;

} // namespace

bool TTypeAhead::IsTyping() const
{
    return wxGetUTCTimeMillis() - m_typedAt <= TypingPause;
}

bool TTypeAhead::IsLetter(const wxKeyEvent& event) const
{
    const wxChar letter = event.GetUnicodeKey();
    return (letter > ' ' || (letter == ' ' && IsTyping())) && letter != WXK_DELETE &&
           !event.AltDown() && !event.CmdDown();
}

int TTypeAhead::Find(const wxKeyEvent& letter, const TRows& rows, int focusedRow)
{
    if (!IsTyping())
        m_typed.clear();
    m_typedAt = wxGetUTCTimeMillis();
    m_typed += wxTolower(letter.GetUnicodeKey());
    const int count = rows.Count(), from = std::max(focusedRow, 0);
    // One letter looks behind the focused row; several letters may still mean the focused row
    // itself.
    for (int i = m_typed.length() == 1 ? 1 : 0; i <= count && count > 0; ++i) {
        const int row = (from + i) % count;
        if (ToWx(rows.Text(row, lcTitle)).Lower().StartsWith(m_typed))
            return row;
    }
    return -1;
}

} // namespace murala
