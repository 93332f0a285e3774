// The wallpaper list: a report that asks for the texts of the rows it shows, so that its length
// costs nothing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <wx/listctrl.h>

namespace murala
{

class TMuListView : public wxListView
{
public:
    // Text of a cell.
    std::function<std::string(int row, int column)> OnText;
    std::function<bool(int row)> OnIsCurrent;

    TMuListView(wxWindow* parent, const wxString& name);

    // The focused row when it is selected, else the first selected one, else -1.
    int SelectedRow() const;
    std::vector<int> SelectedRows() const;
    void SelectAll();
    // The only selected row; -1 for none.
    void SelectOnly(int row);

private:
    wxString OnGetItemText(long row, long column) const override;
    wxItemAttr* OnGetItemAttr(long row) const override;

    mutable wxItemAttr m_currentAttr;
};

} // namespace murala
