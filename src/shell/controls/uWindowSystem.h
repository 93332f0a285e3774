// What the toolkit leaves to the window system of each home.
#pragma once

#include "uStickyEdges.h"

#include <wx/bmpbndl.h>
#include <wx/icon.h>
#include <wx/string.h>

#include <functional>
#include <vector>

class wxButton;
class wxColour;
class wxMenu;
class wxNotebook;
class wxTopLevelWindow;
class wxWindow;

namespace murala
{

// Starts the toolkit by calling `start`, without loading what only programs with three-dimensional
// graphics need.
bool StartLean(const std::function<bool()>& start);

// The icon of the program's windows.
wxIcon ProgramIcon();

// Gives the icon to all windows that have none of their own, messages too.
void UseProgramIcon();

// Brings the modal dialog or message to the front, if there is one.
void RaiseModalWindow();
// Gives the modal dialog or message an entry in the task bar, which a message without a parent may
// lack.
void ShowModalWindowInTaskBar();

// To be called once before the window is shown, when its size has been set. `onShown` runs each
// time the window has come to the screen, which can be long after Show() where the window manager
// is busy.
void PrepareFirstShow(wxTopLevelWindow& window, std::function<void()> onShown);

// Whether the system asks the program where its window goes while the user drags it (wxEVT_MOVING).
// Elsewhere the window manager moves it, and snaps it as its own settings say.
bool IsAskedWhileDragging();

// Lets files be dropped on the window, also by programs with fewer rights.
void AcceptFileDrops(wxTopLevelWindow& window);

// The invisible part of the frame, which only the mouse can find.
THiddenFrame HiddenFrame(wxTopLevelWindow& window);

// Whether the system's font dialog also asks for underline, strike-out and the colour.
bool HasFontEffects();

// The family that the system draws when this one is asked for: another one where it is missing.
wxString DrawnFace(const wxString& face);

// Runs the action as if the user had just clicked into the window: some systems show menus only
// then.
void RunAsClicked(wxWindow& window, const std::function<void()>& action);

// Lays the menu's entries out in columns with bars between them. `firsts` are the places of the
// entries that begin the second column and those behind it.
void SetMenuColumns(wxMenu& menu, const std::vector<std::size_t>& firsts);

// The icon that the desktop shows for files of this kind; empty where there is none.
enum class TFileIcon { DisplayProperties, WebPage };
wxBitmapBundle FileIcon(TFileIcon icon);

// Sets what a screen reader says of a control of our own: its name, and its state.
void SetAccessibleText(wxWindow& window, const wxString& name, const wxString& description);

// Names a control that has no label of its own, for screen readers.
void SetAccessibleName(wxWindow& window, const wxString& name);

// To be called when wxEVT_CHAR_HOOK handles a key with Alt: otherwise the system may take Alt as
// pressed alone, which opens the menu.
void TakeAltKey(wxWindow& window);

// Adds a page to the notebook; Alt and the letter after "&" in its caption show it.
void AddPage(wxNotebook& book, wxWindow* page, const wxString& caption);

// Makes a file dialog's filter also match names in capitals, as cameras write them.
wxString AnyCaseFilter(const wxString& filter);

// Connects the letters after "&" of a finished window: Alt and the letter in a text or in a frame's
// caption lead to the control that it names. A button without "&" gets no letter.
void ConnectMnemonics(wxWindow& window);

// Gives the button one colour and its text another; focus and disabled state can still be seen.
void SetButtonColors(wxButton& button, const wxColour& background, const wxColour& text);

// Takes the padding of a link away, so that it lines up with texts in the same column.
void AlignWithTexts(wxWindow& link);

// Marks the text as written from the left, even when it begins with a name in a script from the
// right.
wxString LeftToRight(const wxString& text);

// Escapes a text for a progress dialog where its labels take "&" for an access key.
wxString ProgressText(const wxString& text);

// Remembers the focus and which dialog is modal, before all windows are disabled for a while. The
// function that it returns gives both back afterwards.
std::function<void()> RememberInput();

} // namespace murala
