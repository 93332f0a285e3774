#include "uWindowSystem.h"

#include <gtk/gtk.h>
#include <wx/artprov.h>
#include <wx/toplevel.h>

namespace murala
{

// GTK 3 makes the window of the X server tiny, whatever size was set, lays everything out in it
// when it is first shown, and complains about every widget that needs more.
void PrepareFirstShow(wxTopLevelWindow& window)
{
    const auto resize = +[](GtkWidget* widget, gpointer) {
        int width = 0, height = 0;
        gtk_window_get_size(GTK_WINDOW(widget), &width, &height);
        gdk_window_resize(gtk_widget_get_window(widget), width, height);
    };
    g_signal_connect_after(window.GetHandle(), "realize", G_CALLBACK(resize), nullptr);
}

bool IsAskedWhileDragging()
{
    return false;
}

bool HasFontEffects()
{
    return false;
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

} // namespace murala
