// Makes menus, tool bars and buttons from the action list. Captions, hints, enabled and checked
// states are the actions' everywhere.
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
    // Leaves out actions that are not offered, and separators and submenus that would be empty.
    using TLayout = std::initializer_list<TMenuPart>;

    // Handles the actions' events of the window and of its children.
    TActionBinder(wxWindow& window, TActionList& actions);

    wxMenu* NewMenu(TLayout layout);
    // Leaves out empty categories.
    void AppendMenu(wxMenuBar& bar, const wxString& caption, TLayout layout);
    // Adds the icons of files to the menus. Looking them up takes time, so menus are made without
    // them.
    void ShowFileIcons(wxMenuBar& bar);
    void FillToolBar(wxToolBar& bar, TLayout layout);
    wxButton* NewButton(wxWindow* parent, TActionId action, const wxString& name);
    wxButton* NewSpeedButton(wxWindow* parent, TActionId action, const wxString& name);
    // The hint of the entry with this identifier; empty when it has none.
    std::string HintOf(int id) const;
    // Runs the action when the box is clicked. The caller sets what the box shows.
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
