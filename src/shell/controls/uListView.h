// The wallpapers as a list with columns: the native control of each home. It asks for the texts of
// the rows on the screen only, so a long list costs no more than a short one.
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

    // Shows the arrow in the column's header.
    virtual void ShowOrder(TListColumn column, bool ascending) = 0;

    // How many rows the control has, which may lag behind the list's.
    virtual int ShownRows() const = 0;
    virtual wxString ShownText(int row, TListColumn column) const = 0;
    virtual std::vector<int> ShownSelection() const = 0;
    virtual int FocusedRow() const = 0;

    void TellSelection() override;

protected:
    // While it lives, the program changes the control's selection, not the user: events of the
    // control are ignored. A selection of the user that was not told yet is dropped.
    class TProgramSelects
    {
    public:
        explicit TProgramSelects(TMuListView& view);

    private:
        TValueScope<bool> m_selecting;
    };

    // To be called when the control sends an event about its selection.
    void SelectionEvent();

    // The selected rows, remembered: asking the control for thousands of them takes a while.
    const std::vector<int>& Shown();
    void SetShown(const std::vector<int>& rows) { m_shown = rows; }
    void ForgetShown() { m_shown.reset(); }

    TRows& m_rows;

private:
    bool m_isSelecting = false;              // the program selects, see TProgramSelects
    bool m_isSelectionPending = false;       // the user's selection is to be told
    std::optional<std::vector<int>> m_shown; // what Shown() remembers
};

TMuListView* NewListView(wxWindow* parent, TRows& rows, const wxString& name);

} // namespace murala
