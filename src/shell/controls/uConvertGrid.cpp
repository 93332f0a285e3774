#include "uConvertGrid.h"

#include "uWindowSystem.h"
#include "uWxText.h"

#include <algorithm>

#include <wx/dc.h>
#include <wx/grid.h>
#include <wx/settings.h>

namespace murala
{

namespace
{

// Makes blanks visible, and says where a text is replaced by nothing.
class TReplacementRenderer : public wxGridCellStringRenderer
{
public:
    void Draw(wxGrid& grid, wxGridCellAttr& attributes, wxDC& dc, const wxRect& rect, int row,
              int column, bool isSelected) override
    {
        // Only the background: the string renderer would draw its text, too.
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        wxGridCellRenderer::Draw(grid, attributes, dc, rect, row, column, isSelected);
        wxString text = grid.GetCellValue(row, column);
        const bool isNothing = text.empty() && column == 1 && !grid.GetCellValue(row, 0).empty();
        text.Replace(" ", wxUniChar(0x00B7)); // a middle dot
        SetTextColoursAndFont(grid, attributes, dc, isSelected);
        if (isNothing && !isSelected)
            dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
        grid.DrawTextRectangle(dc, isNothing ? wxString("(nothing)") : text,
                               wxRect(rect).Deflate(1), wxALIGN_LEFT, wxALIGN_CENTRE);
    }
    wxGridCellRenderer* Clone() const override { return new TReplacementRenderer; }
};

} // namespace

TConvertGrid::TConvertGrid(wxWindow* parent, const TConvertList& list)
    : m_grid(new wxGrid(parent, wxID_ANY, wxDefaultPosition, parent->FromDIP(wxSize(340, 190)),
                        wxWANTS_CHARS | wxBORDER_THEME, "sgConvertList"))
{
    m_grid->CreateGrid(std::max<int>(1, static_cast<int>(list.size())), 2);
    m_grid->SetDefaultRenderer(new TReplacementRenderer); // which the grid owns
    m_grid->SetCellHighlightPenWidth(2);
    m_grid->SetCellHighlightColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    m_grid->SetColLabelValue(0, "From");
    m_grid->SetColLabelValue(1, "To");
    m_grid->HideRowLabels();
    m_grid->Bind(wxEVT_SIZE, [grid = m_grid](wxSizeEvent& event) {
        event.Skip();
        for (int column = 0; column < 2; ++column)
            grid->SetColSize(column, grid->GetClientSize().x / 2);
    });
    for (int row = 0; row < static_cast<int>(list.size()); ++row) {
        m_grid->SetCellValue(row, 0, ToWx(list[static_cast<std::size_t>(row)].first));
        m_grid->SetCellValue(row, 1, ToWx(list[static_cast<std::size_t>(row)].second));
    }
    const wxString hint = "Move to the bottom of the list and press the\r\n"
                          "down arrow key to add a new entry to the list.";
    m_grid->SetToolTip(hint);
    m_grid->GetGridWindow()->SetToolTip(hint);
    for (wxWindow* window : {static_cast<wxWindow*>(m_grid), m_grid->GetGridWindow()})
        SetAccessibleName(*window, "Titles: replace From by To");
    m_grid->Bind(wxEVT_KEY_DOWN, &TConvertGrid::OnKey, this);
}

wxWindow* TConvertGrid::Window() const
{
    return m_grid;
}

void TConvertGrid::OnKey(wxKeyEvent& event)
{
    const int last = m_grid->GetNumberRows() - 1;
    const bool isAtEnd = m_grid->GetGridCursorRow() == last;
    const bool isDown = event.GetKeyCode() == WXK_DOWN && event.GetModifiers() == wxMOD_NONE;
    // In and out of the grid as of any other control.
    if (event.GetKeyCode() == WXK_TAB)
        return static_cast<void>(
            m_grid->Navigate(event.ShiftDown() ? 0 : wxNavigationKeyEvent::IsForward));
    if (!isAtEnd || !isDown)
        return event.Skip();
    if (m_grid->GetCellValue(last, 0).empty())
        return;
    m_grid->AppendRows();
    m_grid->GoToCell(last + 1, 0);
}

TConvertList TConvertGrid::List() const
{
    m_grid->DisableCellEditControl(); // takes what is being typed
    TConvertList list;
    for (int row = 0; row < m_grid->GetNumberRows(); ++row)
        if (const wxString from = m_grid->GetCellValue(row, 0); !from.empty())
            list.emplace_back(from.utf8_string(), m_grid->GetCellValue(row, 1).utf8_string());
    return list;
}

} // namespace murala
