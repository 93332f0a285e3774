// The title convert list as a grid.
#pragma once

#include "uTitle.h"

class wxGrid;
class wxKeyEvent;
class wxWindow;

namespace murala
{

// The convert list: "From" and "To". Down on the last row opens another one.
class TConvertGrid
{
public:
    TConvertGrid(wxWindow* parent, const TConvertList& list);
    wxWindow* Window() const;
    // Rows without a "From" are left out.
    TConvertList List() const;

private:
    void OnKey(wxKeyEvent& event);

    wxGrid* m_grid;
};

} // namespace murala
