#include "uWindowSystem.h"

#include "uMnemonics.h"
#include <algorithm>

#include <memory>
#include <utility>

#include <wx/access.h>
#include <wx/button.h>
#include <wx/icon.h>
#include <wx/log.h>
#include <wx/mimetype.h>
#include <wx/notebook.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <wx/msw/wrapwin.h>

#include <dwmapi.h>

namespace murala
{

namespace
{

// What this object does not say, the control says itself.
class TText : public wxAccessible
{
public:
    explicit TText(wxWindow* window) : wxAccessible(window) {}
    wxString Name, Description;
    bool IsList = false;

private:
    wxAccStatus GetName(int child, wxString* name) override
    {
        if (child != wxACC_SELF)
            return wxACC_NOT_IMPLEMENTED;
        *name = Name;
        return wxACC_OK;
    }
    wxAccStatus GetDescription(int child, wxString* description) override
    {
        if (child != wxACC_SELF)
            return wxACC_NOT_IMPLEMENTED;
        *description = Description;
        return wxACC_OK;
    }
    wxAccStatus GetRole(int child, wxAccRole* role) override
    {
        if (child != wxACC_SELF || !IsList)
            return wxACC_NOT_IMPLEMENTED;
        *role = wxROLE_SYSTEM_LIST;
        return wxACC_OK;
    }
};

} // namespace

bool StartLean(const std::function<bool()>& start)
{
    return start();
}

void PrepareFirstShow(wxTopLevelWindow& window, std::function<void()> onShown)
{
    window.Bind(wxEVT_SHOW, [onShown = std::move(onShown)](wxShowEvent& event) {
        event.Skip();
        if (event.IsShown())
            onShown();
    });
}

wxIcon ProgramIcon()
{
    return wxICON(murala);
}

// Windows shows the program file's icon for them.
void UseProgramIcon()
{
}

// A modal window is the only one of the program that is enabled.
void RaiseModalWindow()
{
    const auto raise = [](HWND window, LPARAM) -> BOOL {
        const bool hasTitle = (GetWindowLongA(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
        if (!hasTitle || !IsWindowVisible(window) || !IsWindowEnabled(window))
            return TRUE;
        SetForegroundWindow(window);
        return FALSE;
    };
    EnumThreadWindows(GetCurrentThreadId(), raise, 0);
}

// Windows gives a message without an owner an entry by itself.
void ShowModalWindowInTaskBar()
{
}

bool IsAskedWhileDragging()
{
    return true;
}

// Otherwise Explorer's messages do not reach a program that was started as administrator.
void AcceptFileDrops(wxTopLevelWindow& window)
{
    constexpr UINT copyGlobalData = 0x0049;
    for (const UINT message : {UINT{WM_DROPFILES}, UINT{WM_COPYDATA}, copyGlobalData})
        ChangeWindowMessageFilterEx(window.GetHWND(), message, MSGFLT_ALLOW, nullptr);
    window.DragAcceptFiles(true);
}

THiddenFrame HiddenFrame(wxTopLevelWindow& window)
{
    RECT all{}, seen{};
    if (GetWindowRect(window.GetHWND(), &all) == FALSE ||
        DwmGetWindowAttribute(window.GetHWND(), DWMWA_EXTENDED_FRAME_BOUNDS, &seen, sizeof seen) !=
            S_OK)
        return {};
    const auto hidden = [](LONG distance) { return std::max(0, static_cast<int>(distance)); };
    return {hidden(seen.left - all.left), hidden(seen.top - all.top),
            hidden(all.right - seen.right), hidden(all.bottom - seen.bottom)};
}

bool HasFontEffects()
{
    return true;
}

// The fonts of the default settings come with Windows.
wxString DrawnFace(const wxString& face)
{
    return face;
}

void RunAsClicked(wxWindow& /*window*/, const std::function<void()>& action)
{
    action();
}

// The toolkit does this on Windows.
void SetMenuColumns(wxMenu& /*menu*/, const std::vector<std::size_t>& /*firsts*/)
{
}

wxBitmapBundle FileIcon(TFileIcon icon)
{
    wxIconLocation place("desk.cpl", 0);
    if (icon == TFileIcon::WebPage) {
        const std::unique_ptr<wxFileType> page(
            wxTheMimeTypesManager->GetFileTypeFromExtension("html"));
        if (page == nullptr || !page->GetIcon(&place))
            return {};
    }
    const wxLogNull silence; // a shell may lack the icon
    const wxIcon found(place);
    return found.IsOk() ? wxBitmapBundle(found) : wxBitmapBundle();
}

static TText& TextOf(wxWindow& window)
{
    if (auto* text = dynamic_cast<TText*>(window.GetAccessible()))
        return *text;
    auto* text = new TText(&window);
    window.SetAccessible(text); // the window owns it now
    return *text;
}

void SetAccessibleName(wxWindow& window, const wxString& name)
{
    TextOf(window).Name = name;
}

void SetAccessibleText(wxWindow& window, const wxString& name, const wxString& description)
{
    TText& text = TextOf(window);
    text.IsList = true;
    text.Name = name;
    text.Description = description;
    wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_NAMECHANGE, &window, wxOBJID_CLIENT, wxACC_SELF);
}

// The default window procedure forgets Alt when it sees another key go down.
void TakeAltKey(wxWindow& window)
{
    constexpr WXUINT sysKeyDown = 0x0104; // WM_SYSKEYDOWN
    constexpr WXWPARAM anyKey = 'A';
    constexpr WXLPARAM withAlt = 1 << 29;
    window.MSWDefWindowProc(sysKeyDown, anyKey, withAlt);
}

// The tabs only underline the letter; nothing acts on it.
void AddPage(wxNotebook& book, wxWindow* page, const wxString& caption)
{
    const std::size_t place = book.GetPageCount();
    book.AddPage(page, caption);
    const int key = wxToupper(caption[caption.find('&') + 1]);
    wxGetTopLevelParent(&book)->Bind(wxEVT_CHAR_HOOK, [&book, place, key](wxKeyEvent& event) {
        if (event.GetModifiers() != wxMOD_ALT || event.GetKeyCode() != key)
            return event.Skip();
        book.SetSelection(place);
        TakeAltKey(book);
    });
}

// Patterns ignore the case on Windows.
wxString AnyCaseFilter(const wxString& filter)
{
    return filter;
}

// Windows looks for a frame's letter only among the dialog's direct children.
void ConnectMnemonics(wxWindow& window)
{
    const auto onKey = [&window, mnemonics = MnemonicsIn(window)](wxKeyEvent& event) {
        event.Skip();
        if (event.GetModifiers() != wxMOD_ALT)
            return;
        std::vector<wxWindow*> targets;
        for (const TMnemonic& mnemonic : mnemonics)
            if (mnemonic.Letter == event.GetKeyCode() && mnemonic.Target->IsShownOnScreen() &&
                mnemonic.Target->IsEnabled())
                targets.push_back(mnemonic.Target);
        if (targets.empty())
            return;
        // When several controls have the letter, each press leads to the next one.
        const auto present = std::ranges::find(targets, wxWindow::FindFocus());
        const bool hasNext = present != targets.end() && present + 1 != targets.end();
        (hasNext ? *(present + 1) : targets.front())->SetFocus();
        TakeAltKey(window);
        event.Skip(false);
    };
    window.Bind(wxEVT_CHAR_HOOK, onKey);
}

// The toolkit draws such a button itself, with its focus.
void SetButtonColors(wxButton& button, const wxColour& background, const wxColour& text)
{
    button.SetBackgroundColour(background);
    button.SetForegroundColour(text);
}

void AlignWithTexts(wxWindow& /*link*/)
{
}

// On Windows a text has the direction of its window.
wxString LeftToRight(const wxString& text)
{
    return text;
}

// It is a system dialog, which shows "&" as it is.
wxString ProgressText(const wxString& text)
{
    return text;
}

// Only the focus: the toolkit remembers the rest.
std::function<void()> RememberInput()
{
    return [focus = wxWeakRef<wxWindow>(wxWindow::FindFocus())] {
        if (focus)
            focus->SetFocus();
    };
}

} // namespace murala
