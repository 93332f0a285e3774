#include "uListView.h"

#include "uListColumn.h"
#include "uWxText.h"

#include <gtk/gtk.h>
#include <wx/dataview.h>

#include <cstdlib>

namespace murala
{

namespace
{

class TRowsModel : public wxDataViewVirtualListModel
{
public:
    explicit TRowsModel(TRows& rows)
        : wxDataViewVirtualListModel(static_cast<unsigned>(rows.Count())), m_rows(rows)
    {
    }

    unsigned GetColumnCount() const override { return ListColumnCount; }
    wxString GetColumnType(unsigned /*column*/) const override { return "string"; }
    void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override
    {
        // The list may have changed since ShowRows was called last.
        const bool isThere = static_cast<int>(row) < m_rows.Count();
        value = isThere ? ToWx(m_rows.Text(static_cast<int>(row), static_cast<TListColumn>(column)))
                        : wxString();
    }
    bool SetValueByRow(const wxVariant& value, unsigned row, unsigned /*column*/) override
    {
        const wxString title = wxString(value.GetString()).Trim().Trim(false);
        if (!title.empty())
            m_rows.UserRenames(static_cast<int>(row), title.utf8_string());
        return true;
    }
    bool GetAttrByRow(unsigned row, unsigned /*column*/, wxDataViewItemAttr& attr) const override
    {
        const bool isCurrent =
            static_cast<int>(row) < m_rows.Count() && m_rows.IsCurrent(static_cast<int>(row));
        attr.SetBold(isCurrent);
        return isCurrent;
    }

private:
    TRows& m_rows;
};

constexpr int DesignedCharWidth = 8;

class TNativeListView : public wxDataViewCtrl, public TMuListView
{
public:
    TNativeListView(wxWindow* parent, TRows& rows, const wxString& name)
        : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_MULTIPLE,
                         wxDefaultValidator, name),
          TMuListView(rows), m_model(new TRowsModel(rows))
    {
        AssociateModel(m_model.get());
        for (int i = 0; i < ListColumnCount; ++i)
            AppendTextColumn(ToWx(ListColumns[i].Caption), static_cast<unsigned>(i),
                             i == lcTitle ? wxDATAVIEW_CELL_EDITABLE : wxDATAVIEW_CELL_INERT,
                             ColumnWidth(ListColumns[i].Width), wxALIGN_LEFT,
                             wxDATAVIEW_COL_RESIZABLE)
                ->GetRenderer()
                ->EnableEllipsize(wxELLIPSIZE_END);
        MakeTitlesEditable(false);
        BindEvents();
        atk_object_set_name(gtk_widget_get_accessible(GtkGetTreeView()), "Wallpapers");
    }
    // The base class's destructor still sends selection events, when this object is gone already.
    ~TNativeListView() override
    {
        SetEvtHandlerEnabled(false);
        g_signal_handlers_disconnect_by_data(GtkGetTreeView(), this);
        g_signal_handlers_disconnect_by_data(TitleRenderer(), this);
        DropEdit(); // gives the focus back to the control
    }

    void ShowOrder(TListColumn column, bool ascending) override;

    wxWindow& Window() override { return *this; }
    void ShowRows() override;
    // Refresh() would paint the cached picture of the rows again.
    void ShowTexts() override { gtk_widget_queue_draw(GtkGetTreeView()); }
    void ShowSelection(const std::vector<int>& rows, int focusedRow) override;
    void BringIntoView(int row) override
    {
        EnsureVisible(m_model->GetItem(static_cast<unsigned>(row)));
    }
    void EditTitle(int row) override;
    wxRect RowRect(int row) const override
    {
        return GetItemRect(m_model->GetItem(static_cast<unsigned>(row)));
    }
    bool IsEditing() const override { return m_isEditing; }

    int ShownRows() const override { return static_cast<int>(m_model->GetCount()); }
    wxString ShownText(int row, TListColumn column) const override;
    std::vector<int> ShownSelection() const override;
    int FocusedRow() const override;

private:
    void BindEvents();
    void ShowFocus(int row);
    void MakeTitlesEditable(bool editable);
    void DropEdit();
    void EndEdit();
    void EditBegins(GtkEntry* editor, int row);
    void EditEnds(GtkEntry* editor);
    bool TakesKey(int key, int modifiers);
    GObject* TitleRenderer() const
    {
        return G_OBJECT(GetColumn(lcTitle)->GetRenderer()->GetGtkHandle());
    }
    // DIPs do not grow with the user's font, but the columns have to.
    int ColumnWidth(int designed) const
    {
        return std::max(FromDIP(designed), designed * GetCharWidth() / DesignedCharWidth);
    }
    int RowOf(const wxDataViewItem& item) const
    {
        return item.IsOk() ? static_cast<int>(m_model->GetRow(item)) : -1;
    }

    wxObjectDataPtr<TRowsModel> m_model;
    bool m_isEditing = false;
    bool m_isEditKept =
        true; // keep what was typed, also when GTK ends the edit; Escape sets it to false
    int m_editedRow = -1;
};

void TNativeListView::BindEvents()
{
    Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { SelectionEvent(); });
    Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) { m_rows.UserActivates(); });
    Bind(wxEVT_DATAVIEW_COLUMN_HEADER_CLICK, [this](wxDataViewEvent& event) {
        if (event.GetColumn() >= 0)
            m_rows.UserClicksHeader(static_cast<TListColumn>(event.GetColumn()));
    });
    Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU,
         [this](wxDataViewEvent&) { m_rows.UserWantsMenu(false); });
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        if (m_isEditing || !TakesKey(event.GetKeyCode(), event.GetModifiers()))
            event.Skip();
    });
    // When the window is disabled, GTK destroys the editor while it walks through the control's
    // children.
    g_signal_connect_swapped(GtkGetTreeView(), "state-flags-changed",
                             G_CALLBACK(+[](TNativeListView* view) {
                                 if (!gtk_widget_is_sensitive(view->GtkGetTreeView()))
                                     view->EndEdit();
                             }),
                             this);
    // Ctrl and an arrow key move only the focus; the toolkit sends no event for that.
    g_signal_connect_swapped(GtkGetTreeView(), "cursor-changed",
                             G_CALLBACK(+[](TNativeListView* view) { view->SelectionEvent(); }),
                             this);
    g_signal_connect(TitleRenderer(), "editing-started",
                     G_CALLBACK(+[](GtkCellRenderer*, GtkCellEditable* editor, const char* path,
                                    TNativeListView* view) {
                         view->EditBegins(GTK_ENTRY(editor), std::atoi(path));
                     }),
                     this);
    Bind(wxEVT_DATAVIEW_ITEM_EDITING_STARTED, [this](wxDataViewEvent&) { m_isEditing = true; });
    Bind(wxEVT_DATAVIEW_ITEM_EDITING_DONE, [this](wxDataViewEvent&) {
        m_isEditing = false;
        MakeTitlesEditable(false);
    });
}

int TNativeListView::FocusedRow() const
{
    return RowOf(GetCurrentItem());
}

std::vector<int> TNativeListView::ShownSelection() const
{
    wxDataViewItemArray items;
    GetSelections(items);
    std::vector<int> rows;
    rows.reserve(items.size());
    for (const wxDataViewItem& item : items)
        rows.push_back(RowOf(item));
    return rows;
}

wxString TNativeListView::ShownText(int row, TListColumn column) const
{
    wxVariant value;
    m_model->GetValueByRow(value, static_cast<unsigned>(row), column);
    return value.GetString();
}

void TNativeListView::ShowRows()
{
    DropEdit();
    const TProgramSelects selecting(*this);
    ForgetShown();
    m_model->Reset(static_cast<unsigned>(m_rows.Count()));
}

void TNativeListView::ShowSelection(const std::vector<int>& rows, int focusedRow)
{
    const TProgramSelects selecting(*this);
    if (focusedRow >= 0 && focusedRow != FocusedRow())
        ShowFocus(focusedRow);
    if (Shown() != rows) {
        if (static_cast<int>(rows.size()) == m_rows.Count()) {
            SelectAll();
        } else {
            wxDataViewItemArray items;
            for (const int row : rows)
                items.push_back(m_model->GetItem(static_cast<unsigned>(row)));
            SetSelections(items);
        }
        SetShown(rows);
    }
}

// GTK moves its cursor only together with the selection, and scrolls to it.
void TNativeListView::ShowFocus(int row)
{
    GtkAdjustment* place = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(GtkGetTreeView()));
    const double before = gtk_adjustment_get_value(place);
    SetCurrentItem(m_model->GetItem(static_cast<unsigned>(row)));
    gtk_adjustment_set_value(place, before);
    ForgetShown();
}

void TNativeListView::ShowOrder(TListColumn column, bool ascending)
{
    for (unsigned i = 0; i < GetColumnCount(); ++i)
        if (static_cast<int>(i) != column)
            GetColumn(i)->UnsetAsSortKey();
    GetColumn(column)->SetSortOrder(ascending);
}

// GTK starts editing a title on every click into it, instead of selecting the row. So titles are
// editable only while an edit is wanted; the toolkit's own switch works only for a new column.
void TNativeListView::MakeTitlesEditable(bool editable)
{
    g_object_set(TitleRenderer(), "editable", editable, nullptr);
}

// The control sends no event for a menu opened by a key, and treats the space bar as Enter.
bool TNativeListView::TakesKey(int key, int modifiers)
{
    const bool isMenuKey = modifiers == wxMOD_NONE && (key == WXK_WINDOWS_MENU || key == WXK_MENU);
    if (isMenuKey || (modifiers == wxMOD_SHIFT && key == WXK_F10)) {
        m_rows.UserWantsMenu(true);
        return true;
    }
    if (key != WXK_SPACE || (modifiers & ~wxMOD_SHIFT) != 0)
        return false;
    GtkTreePath* path = nullptr;
    gtk_tree_view_get_cursor(GTK_TREE_VIEW(GtkGetTreeView()), &path, nullptr);
    if (path != nullptr)
        gtk_tree_view_set_cursor(GTK_TREE_VIEW(GtkGetTreeView()), path, nullptr, FALSE);
    gtk_tree_path_free(path);
    return true;
}

// GTK throws the typed text away when the focus leaves the editor; it is kept here.
void TNativeListView::EditBegins(GtkEntry* editor, int row)
{
    m_editedRow = row;
    m_isEditKept = true;
    g_signal_connect(editor, "key-press-event",
                     G_CALLBACK(+[](GtkWidget*, GdkEventKey* event, TNativeListView* view) {
                         view->m_isEditKept = event->keyval != GDK_KEY_Escape;
                         return FALSE;
                     }),
                     this);
    g_signal_connect(
        editor, "editing-done",
        G_CALLBACK(+[](GtkEntry* done, TNativeListView* view) { view->EditEnds(done); }), this);
}

void TNativeListView::EditEnds(GtkEntry* editor)
{
    gboolean isCancelled = FALSE;
    g_object_get(editor, "editing-canceled", &isCancelled, nullptr);
    if (isCancelled && m_isEditKept)
        m_model->SetValueByRow(wxString::FromUTF8(gtk_entry_get_text(editor)),
                               static_cast<unsigned>(m_editedRow), lcTitle);
}

void TNativeListView::DropEdit()
{
    m_isEditKept = false;
    EndEdit();
}

void TNativeListView::EndEdit()
{
    if (!m_isEditing)
        return;
    GtkCellLayout* column = GTK_CELL_LAYOUT(GetColumn(lcTitle)->GetGtkHandle());
    gtk_cell_area_stop_editing(gtk_cell_layout_get_area(column), TRUE);
    MakeTitlesEditable(false);
    m_isEditing = false;
}

void TNativeListView::EditTitle(int row)
{
    MakeTitlesEditable(true);
    EditItem(m_model->GetItem(static_cast<unsigned>(row)), GetColumn(lcTitle));
}

} // namespace

TMuListView* NewListView(wxWindow* parent, TRows& rows, const wxString& name)
{
    return new TNativeListView(parent, rows, name);
}

} // namespace murala
