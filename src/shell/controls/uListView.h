// The wallpaper list as a report: the native list of each home. It asks for the texts of the rows
// it shows, so that its length costs nothing.
#pragma once

#include "uScopes.h"
#include "uWallpaperView.h"

#include <optional>

#include <wx/string.h>

namespace murala
{

class TMuListView : public TWallpaperView
{
public:
    explicit TMuListView(TRows& rows) : m_rows(rows) {}

    // The arrow in the header.
    virtual void ShowOrder(TListColumn column, bool ascending) = 0;

    // What the control shows.
    virtual int ShownRows() const = 0;
    virtual wxString ShownText(int row, TListColumn column) const = 0;
    virtual std::vector<int> ShownSelection() const = 0;
    virtual int FocusedRow() const = 0;

    void TellSelection() override;

protected:
    // The control's selection changes by the program, not by the user; what the user had selected
    // until then is no longer told.
    class TProgramSelects
    {
    public:
        explicit TProgramSelects(TMuListView& view);

    private:
        TValueScope<bool> m_selecting;
    };

    // The control says that its selection has changed.
    void SelectionEvent();

    // The selected rows. Asking the control for thousands of them takes a while.
    const std::vector<int>& Shown();
    void SetShown(const std::vector<int>& rows) { m_shown = rows; }
    void ForgetShown() { m_shown.reset(); }

    TRows& m_rows;

private:
    bool m_isSelecting = false;              // the program, not the user
    bool m_isSelectionPending = false;       // of the user
    std::optional<std::vector<int>> m_shown; // the selected rows, if known
};

TMuListView* NewListView(wxWindow* parent, TRows& rows, const wxString& name);

} // namespace murala
