// What the list and the thumbnail view have in common: the rows that they ask for, what they tell,
// and what they are told.
#pragma once

#include "uWallpaper.h"

#include <string>
#include <vector>

class wxRect;
class wxWindow;

namespace murala
{

// The rows that views show, and what the user does with them.
class TRows
{
public:
    virtual ~TRows() = default;
    virtual int Count() const = 0;
    virtual std::string Text(int row, TListColumn column) const = 0;
    // Whether it is the wallpaper on the desktop.
    virtual bool IsCurrent(int row) const = 0;

    // `focusedRow` is -1 when there is none.
    virtual void UserSelects(const std::vector<int>& rows, int focusedRow) = 0;
    virtual void UserActivates() = 0;
    virtual void UserRenames(int row, const std::string& title) = 0;
    virtual void UserClicksHeader(TListColumn column) = 0;
    virtual void UserWantsMenu(bool byKey) = 0;
};

class TWallpaperView
{
public:
    virtual ~TWallpaperView() = default;
    virtual wxWindow& Window() = 0;

    // Rows came, went or changed places. Clears the selection.
    virtual void ShowRows() = 0;
    // Texts changed, or another wallpaper is on the desktop.
    virtual void ShowTexts() = 0;
    // Selects the rows without calling TRows::UserSelects, and without scrolling.
    virtual void ShowSelection(const std::vector<int>& rows, int focusedRow) = 0;
    virtual void BringIntoView(int row) = 0;
    // The view waits a moment before it calls TRows::UserSelects, so that many rows are told
    // together; this makes it call at once.
    virtual void TellSelection() = 0;
    virtual void EditTitle(int row) = 0;
    // In the window; empty while the row is not on the screen.
    virtual wxRect RowRect(int row) const = 0;
    // While a title is being edited, keys belong to the editor.
    virtual bool IsEditing() const = 0;
};

} // namespace murala
