// The wallpaper list as a report: the native list of each home. It asks for the texts of the rows
// it shows, so that its length costs nothing.
#pragma once

#include "uWallpaperView.h"

#include <wx/string.h>

namespace murala
{

class TMuListView : public TWallpaperView
{
public:
    // The arrow in the header.
    virtual void ShowOrder(TListColumn column, bool ascending) = 0;

    // What the control shows.
    virtual int ShownRows() const = 0;
    virtual wxString ShownText(int row, TListColumn column) const = 0;
    virtual std::vector<int> ShownSelection() const = 0;
    virtual int FocusedRow() const = 0;
};

TMuListView* NewListView(wxWindow* parent, TRows& rows, const wxString& name);

} // namespace murala
