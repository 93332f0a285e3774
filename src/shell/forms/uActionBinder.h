// Menus, tool bars and buttons made from the action list. What an action's table row and its events
// say is shown everywhere alike.
#pragma once

#include "uActionList.h"
#include "uWxText.h"

#include <initializer_list>
#include <string_view>

#include <wx/wx.h>

namespace murala
{

// One part of a menu or a tool bar: an action, "-" for a separator, "&Caption>" for the begin of a
// submenu and "<" for its end.
struct TMenuPart {
    TMenuPart(TActionId action) : Action(action) {} // NOLINT(google-explicit-constructor)
    TMenuPart(const char* text) : Text(text) {}     // NOLINT(google-explicit-constructor)

    TActionId Action = ActionCount;
    std::string_view Text; // empty: the action
};

class TActionBinder
{
public:
    // Actions that are not offered are left out, and separators and submenus that would stand for
    // nothing, too.
    using TLayout = std::initializer_list<TMenuPart>;

    // Handles the actions' events of the window (and what comes up to it from its children).
    TActionBinder(wxWindow& window, TActionList& actions);

    wxMenu* NewMenu(TLayout layout);
    // Empty categories are left out.
    void AppendMenu(wxMenuBar& bar, const wxString& caption, TLayout layout);
    // Looking the icons of files up takes time: the menus do without them until then.
    void ShowFileIcons(wxMenuBar& bar);
    void FillToolBar(wxToolBar& bar, TLayout layout);
    wxButton* NewButton(wxWindow* parent, TActionId action, const wxString& name);
    wxButton* NewSpeedButton(wxWindow* parent, TActionId action, const wxString& name);
    // Of the entry with this identifier; empty where it has none.
    std::string HintOf(int id) const;
    // Runs the action when the box is clicked; what it shows is the caller's affair.
    wxCheckBox* NewCheckBox(wxWindow* parent, TActionId action, const wxString& name);

private:
    void alMainUpdate(wxUpdateUIEvent& event);
    int IdOf(TActionId action) const { return m_firstId + action; }
    TActionId ActionOf(int id) const { return static_cast<TActionId>(id - m_firstId); }
    void Populate(wxMenu& menu, const TMenuPart*& part, const TMenuPart* end);
    wxMenuItem* NewItem(wxMenu& menu, const TAction& action);

    wxWindow& m_window;
    TActionList& m_actions;
    int m_firstId;
};

} // namespace murala
