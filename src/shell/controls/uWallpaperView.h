// A control that shows the wallpapers: what it asks for, what it tells, what it is told.
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

    // Rows came, went or changed places; nothing is selected then.
    virtual void ShowRows() = 0;
    // Texts changed, or another wallpaper is on the desktop.
    virtual void ShowTexts() = 0;
    // The user is not told of as the one who selected them. Nothing is scrolled.
    virtual void ShowSelection(const std::vector<int>& rows, int focusedRow) = 0;
    virtual void BringIntoView(int row) = 0;
    // What the user has selected is told a moment later, many rows together; this tells it now.
    virtual void TellSelection() = 0;
    virtual void EditTitle(int row) = 0;
    // In the window; empty while it is not seen.
    virtual wxRect RowRect(int row) const = 0;
    // Keys are then the editor's.
    virtual bool IsEditing() const = 0;
};

} // namespace murala
