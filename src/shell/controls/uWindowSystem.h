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

// Starts the toolkit, by `start`, without what a program with three-dimensional graphics would
// need.
bool StartLean(const std::function<bool()>& start);

// For the windows of the program.
wxIcon ProgramIcon();

// The same for all windows that have no icon of their own, messages too.
void UseProgramIcon();

// Brings the dialog or message that takes all input to the front, where there is one.
void RaiseModalWindow();
// Gives it an entry in the task bar, which a message without a parent may lack.
void ShowModalWindowInTaskBar();

// Right before a window is shown for the first time, when its size has been set. `onShown` runs
// whenever it has come to the screen, long after it was shown where the window manager is busy.
void PrepareFirstShow(wxTopLevelWindow& window, std::function<void()> onShown);

// Whether a program is asked where its window goes while it is dragged (wxEVT_MOVING). On other
// systems the window manager moves it, and snaps it as its own settings say.
bool IsAskedWhileDragging();

// From now on files may be dropped on it, also by programs with fewer rights.
void AcceptFileDrops(wxTopLevelWindow& window);

// The part of the frame that is there for the mouse alone.
THiddenFrame HiddenFrame(wxTopLevelWindow& window);

// Whether the system's font dialog asks for lines and the colour, too.
bool HasFontEffects();

// The family that is drawn where this one is wanted: another one where it is missing.
wxString DrawnFace(const wxString& face);

// Runs it as if the user had just clicked into the window: some systems show menus only then.
void RunAsClicked(wxWindow& window, const std::function<void()>& action);

// Lays the menu's entries out in columns with bars between them; `firsts` are the places of the
// entries that begin one, but for the first column's.
void SetMenuColumns(wxMenu& menu, const std::vector<std::size_t>& firsts);

// The icons that files of these kinds have in the shell; empty where there is none.
enum class TFileIcon { DisplayProperties, WebPage };
wxBitmapBundle FileIcon(TFileIcon icon);

// What a screen reader says of a control of our own: what it stands on, and how that is.
void SetAccessibleText(wxWindow& window, const wxString& name, const wxString& description);

// For a control without a label of its own.
void SetAccessibleName(wxWindow& window, const wxString& name);

// Where a key with Alt is taken in wxEVT_CHAR_HOOK: else the system may take Alt for pressed alone,
// which is for the menu.
void TakeAltKey(wxWindow& window);

// Adds a page that Alt and the letter after "&" in its caption show, too.
void AddPage(wxNotebook& book, wxWindow* page, const wxString& caption);

// A file dialog's filter whose patterns also fit names in capitals, such as cameras write them.
wxString AnyCaseFilter(const wxString& filter);

// For a window whose controls are all made: Alt and the letter after "&" in a text or in a frame's
// caption lead to the control that it names, and a button without "&" takes no letter.
void ConnectMnemonics(wxWindow& window);

// A button of one colour with its text in another one; the focus and being disabled still show.
void SetButtonColors(wxButton& button, const wxColour& background, const wxColour& text);

// A link that stands in a column with texts: without the padding of a button.
void AlignWithTexts(wxWindow& link);

// A text that begins with names in scripts from the right still is a line from the left.
wxString LeftToRight(const wxString& text);

// For a progress dialog: some are made of labels, which take "&" for an access key.
wxString ProgressText(const wxString& text);

// Gives back what windows forget when they are disabled for a while: where the focus stood, and
// that a modal dialog takes all input.
std::function<void()> RememberInput();

} // namespace murala
