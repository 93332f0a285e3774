#include "uWindowSystem.h"

#include "uDialog.h"
#include "uMnemonics.h"
#include "uTrayFrames.h"

#include <gtk/gtk.h>
#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/control.h>
#include <wx/dialog.h>
#include <wx/menu.h>
#include <wx/notebook.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <memory>
#include <utility>

namespace murala
{

namespace
{

struct TEventFree {
    void operator()(GdkEvent* event) const noexcept { gdk_event_free(event); }
};
using TEvent = std::unique_ptr<GdkEvent, TEventFree>;

struct TObjectUnref {
    void operator()(gpointer object) const noexcept { g_object_unref(object); }
};
template<typename T>
using TObject = std::unique_ptr<T, TObjectUnref>;

struct TFontDescriptionFree {
    void operator()(PangoFontDescription* font) const noexcept
    {
        pango_font_description_free(font);
    }
};
using TFontDescription = std::unique_ptr<PangoFontDescription, TFontDescriptionFree>;

// Makes an event: the pointer clicks into the window.
TEvent NewClick(GdkWindow* window)
{
    TEvent event(gdk_event_new(GDK_BUTTON_PRESS));
    event->button.window = GDK_WINDOW(g_object_ref(window));
    event->button.send_event = TRUE;
    event->button.button = GDK_BUTTON_SECONDARY;
    event->button.time = GDK_CURRENT_TIME;
    GdkSeat* seat = gdk_display_get_default_seat(gdk_window_get_display(window));
    gdk_event_set_device(event.get(), gdk_seat_get_pointer(seat));
    return event;
}

struct TClick {
    const GdkEvent* Event;
    const std::function<void()>& Action;
    std::exception_ptr Thrown; // carried past GTK's C code
};

gboolean OnEvent(GtkWidget*, GdkEvent* event, gpointer data)
{
    auto* click = static_cast<TClick*>(data);
    if (event != click->Event)
        return FALSE;
    try {
        click->Action();
    } catch (...) {
        click->Thrown = std::current_exception();
    }
    return TRUE;
}

struct TFocus {
    wxWeakRef<wxWindow> Window;
    std::shared_ptr<GtkWidget> Widget;
};

void AddStyle(GtkWidget* widget, const char* text)
{
    const TObject<GtkCssProvider> style(gtk_css_provider_new());
    gtk_css_provider_load_from_data(style.get(), text, -1, nullptr);
    gtk_style_context_add_provider(gtk_widget_get_style_context(widget),
                                   GTK_STYLE_PROVIDER(style.get()),
                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
}

// The modal window that was opened last; null when there is none.
GtkWindow* ModalWindow()
{
    GList* windows = gtk_window_list_toplevels(); // opened last comes first
    GtkWindow* found = nullptr;
    for (GList* each = windows; each != nullptr && found == nullptr; each = each->next)
        if (gtk_window_get_modal(GTK_WINDOW(each->data)) &&
            gtk_widget_get_visible(GTK_WIDGET(each->data)))
            found = GTK_WINDOW(each->data);
    g_list_free(windows);
    return found;
}

// Whether GTK gives the button a caption of its own.
bool IsStockButton(GtkWidget* widget)
{
    gboolean isStock = FALSE;
    if (GTK_IS_BUTTON(widget))
        g_object_get(widget, "use-stock", &isStock, nullptr);
    return isStock != FALSE;
}

// GTK gives buttons such as "Cancel" its own caption, which has a letter: takes the letter away.
void TakeStockLetters(wxWindow& window)
{
    if (IsStockButton(window.GetHandle())) {
        const wxString caption = window.GetLabel();
        g_object_set(window.GetHandle(), "use-stock", FALSE, "use-underline", FALSE, "label",
                     static_cast<const char*>(caption.utf8_str()), nullptr);
    }
    for (wxWindow* child : window.GetChildren())
        if (!child->IsTopLevel())
            TakeStockLetters(*child);
}

// Draws the bar to the left of a menu entry.
void DrawBar(GtkWidget* entry)
{
    AddStyle(entry, "menuitem { border-left: 1px solid alpha(currentColor, 0.3); }");
}

} // namespace

// Otherwise the first GTK 3 program on an X server loads the graphics driver only to look up kinds
// of windows: 50 MB with the software driver.
bool StartLean(const std::function<bool()>& start)
{
    constexpr const char* name = "GDK_GL";
    if (std::getenv(name) != nullptr)
        return start();
    setenv(name, "disable", 0);
    const bool isStarted = start();
    unsetenv(name); // programs that Murala starts may need it
    return isStarted;
}

wxIcon ProgramIcon()
{
    wxIcon icon;
    icon.CopyFromBitmap(wxBitmap(ProgramPicture()));
    return icon;
}

void UseProgramIcon()
{
    gtk_window_set_default_icon(ProgramIcon().GetPixbuf());
}

void RaiseModalWindow()
{
    if (GtkWindow* window = ModalWindow())
        gtk_window_present(window);
}

// GTK keeps message boxes out of the task bar.
void ShowModalWindowInTaskBar()
{
    if (GtkWindow* window = ModalWindow())
        gtk_window_set_skip_taskbar_hint(window, FALSE);
}

// GTK 3 creates the window tiny in the screen's corner, whatever size was set. Its first layout
// would be done in that size, with complaints about every widget that needs more, and the window
// manager would leave the window in the corner.
void PrepareFirstShow(wxTopLevelWindow& window, std::function<void()> onShown)
{
    const auto place = +[](GtkWidget* widget, gpointer) {
        int x = 0, y = 0, width = 0, height = 0;
        gtk_window_get_size(GTK_WINDOW(widget), &width, &height);
        gtk_window_get_position(GTK_WINDOW(widget), &x, &y);
        gdk_window_move_resize(gtk_widget_get_window(widget), x, y, width, height);
    };
    g_signal_connect_after(window.GetHandle(), "realize", G_CALLBACK(place), nullptr);
    const auto tell = +[](GtkWidget*, GdkEvent*, gpointer action) -> gboolean {
        (*static_cast<std::function<void()>*>(action))();
        return FALSE;
    };
    const auto forget =
        +[](gpointer action, GClosure*) { delete static_cast<std::function<void()>*>(action); };
    g_signal_connect_data(window.GetHandle(), "map-event", G_CALLBACK(tell),
                          new std::function<void()>(std::move(onShown)), forget, G_CONNECT_AFTER);
}

bool IsAskedWhileDragging()
{
    return false;
}

void AcceptFileDrops(wxTopLevelWindow& window)
{
    window.DragAcceptFiles(true);
}

THiddenFrame HiddenFrame(wxTopLevelWindow& /*window*/)
{
    return {};
}

bool HasFontEffects()
{
    return false;
}

wxString DrawnFace(const wxString& face)
{
    const TFontDescription wanted(pango_font_description_new());
    pango_font_description_set_family(wanted.get(), face.utf8_str());
    const TObject<PangoContext> context(gdk_pango_context_get());
    const TObject<PangoFont> font(pango_context_load_font(context.get(), wanted.get()));
    if (!font)
        return face;
    const TFontDescription drawn(pango_font_describe(font.get()));
    return wxString::FromUTF8(pango_font_description_get_family(drawn.get()));
}

// GTK needs the event that opens a menu, and complains without one.
void RunAsClicked(wxWindow& window, const std::function<void()>& action)
{
    GtkWidget* widget = window.GetHandle();
    GdkWindow* place = gtk_widget_get_window(widget);
    if (place == nullptr)
        return action();
    const TEvent event = NewClick(place);
    TClick click{event.get(), action, nullptr};
    const gulong handler = g_signal_connect(widget, "event", G_CALLBACK(OnEvent), &click);
    gtk_main_do_event(event.get());
    g_signal_handler_disconnect(widget, handler);
    if (click.Thrown)
        std::rethrow_exception(click.Thrown);
}

void SetMenuColumns(wxMenu& menu, const std::vector<std::size_t>& firsts)
{
    if (firsts.empty())
        return;
    GList* entries = gtk_container_get_children(GTK_CONTAINER(menu.m_menu));
    std::size_t place = 0;
    int column = 0, row = 0;
    for (GList* each = entries; each != nullptr; each = each->next, ++place, ++row) {
        auto* entry = GTK_WIDGET(each->data);
        if (std::ranges::find(firsts, place) != firsts.end()) {
            ++column;
            row = 0;
        }
        if (column > 0)
            DrawBar(entry);
        gtk_container_child_set(GTK_CONTAINER(menu.m_menu), entry, "left-attach", column,
                                "right-attach", column + 1, "top-attach", row, "bottom-attach",
                                row + 1, nullptr);
    }
    g_list_free(entries);
}

wxBitmapBundle FileIcon(TFileIcon icon)
{
    return wxArtProvider::GetBitmapBundle(
        icon == TFileIcon::WebPage ? "text-html" : "preferences-desktop-wallpaper", wxART_MENU);
}

void SetAccessibleText(wxWindow& window, const wxString& name, const wxString& description)
{
    if (AtkObject* object = gtk_widget_get_accessible(window.GetHandle())) {
        atk_object_set_role(object, ATK_ROLE_LIST_BOX);
        atk_object_set_name(object, name.utf8_str());
        atk_object_set_description(object, description.utf8_str());
    }
}

void SetAccessibleName(wxWindow& window, const wxString& name)
{
    if (AtkObject* object = gtk_widget_get_accessible(window.GetHandle()))
        atk_object_set_name(object, name.utf8_str());
}

void TakeAltKey(wxWindow& /*window*/)
{
}

// GTK's tabs can have access keys, but the toolkit does not set them.
void AddPage(wxNotebook& book, wxWindow* page, const wxString& caption)
{
    book.AddPage(page, caption);
    GtkNotebook* notebook = GTK_NOTEBOOK(book.GetHandle());
    GtkWidget* tab = gtk_notebook_get_tab_label(notebook, gtk_notebook_get_nth_page(notebook, -1));
    GList* parts = gtk_container_get_children(GTK_CONTAINER(tab));
    wxString text = caption;
    text.Replace("&", "_");
    for (GList* each = parts; each != nullptr; each = each->next)
        if (GTK_IS_LABEL(each->data))
            gtk_label_set_text_with_mnemonic(GTK_LABEL(each->data), text.utf8_str());
    g_list_free(parts);
}

// The filter alternates descriptions and patterns. GTK's patterns know "[jJ]".
wxString AnyCaseFilter(const wxString& filter)
{
    wxString result;
    bool isPattern = false;
    for (const wxUniChar c : filter) {
        if (c == '|')
            isPattern = !isPattern;
        if (isPattern && wxIsalpha(c))
            result << '[' << wxTolower(c) << wxToupper(c) << ']';
        else
            result << c;
    }
    return result;
}

// The toolkit underlines the letters of texts and frames without telling GTK which control they
// lead to. GTK then presses something else around the text, in the end the dialog's default button.
void ConnectMnemonics(wxWindow& window)
{
    const auto focus = +[](GtkWidget*, gboolean, gpointer target) -> gboolean {
        static_cast<wxWindow*>(target)->SetFocus();
        return TRUE;
    };
    for (const TMnemonic& mnemonic : MnemonicsIn(window)) {
        GtkWidget* name = mnemonic.Name->GetHandle();
        GtkWidget* label = GTK_IS_FRAME(name) ? gtk_frame_get_label_widget(GTK_FRAME(name)) : name;
        if (GTK_IS_LABEL(label))
            g_signal_connect(label, "mnemonic-activate", G_CALLBACK(focus), mnemonic.Target);
    }
    TakeStockLetters(window);
}

void SetButtonColors(wxButton& button, const wxColour& background, const wxColour& text)
{
    const wxString colors =
        wxString::Format("button, button label { background: %s; color: %s; }"
                         "button:focus { outline: 2px dashed %s; outline-offset: -6px; }"
                         "button:disabled { opacity: 0.4; }",
                         background.GetAsString(), text.GetAsString(), text.GetAsString());
    AddStyle(button.GetHandle(), colors.utf8_str());
}

void AlignWithTexts(wxWindow& link)
{
    AddStyle(link.GetHandle(), "button { padding: 0; border: none; min-height: 0; }");
}

// Pango takes a line's direction from its first letter: an invisible left-to-right mark is put
// before it.
wxString LeftToRight(const wxString& text)
{
    return text.IsAscii() ? text : wxUniChar(0x200E) + text;
}

wxString ProgressText(const wxString& text)
{
    return wxControl::EscapeMnemonics(text);
}

// GTK takes the focus and the grab away from what it disables.
std::function<void()> RememberInput()
{
    std::vector<TFocus> focuses;
    for (wxWindow* window : wxTopLevelWindows)
        if (GtkWidget* widget = gtk_window_get_focus(GTK_WINDOW(window->GetHandle())))
            focuses.push_back({window, {GTK_WIDGET(g_object_ref(widget)), g_object_unref}});
    return [focuses = std::move(focuses)] {
        for (const auto& [window, widget] : focuses)
            if (window && gtk_widget_get_toplevel(widget.get()) == window->GetHandle())
                gtk_window_set_focus(GTK_WINDOW(window->GetHandle()), widget.get());
        for (wxDialog* dialog : ModalDialogs())
            gtk_grab_add(dialog->GetHandle());
    };
}

} // namespace murala
