// Menus, tool bars and buttons made from the action list. What an action's table row and its events
// say is shown everywhere alike.
#pragma once

#include "uActionList.h"

#include <initializer_list>
#include <string_view>

#include <wx/wx.h>

namespace murala
{

class TActionBinder
{
public:
    // A layout is a row of action names. "-" is a separator; "&Caption>" opens a submenu and "<"
    // closes it. Actions that are not offered are left out, and separators and submenus that would
    // stand for nothing, too.
    using TLayout = std::initializer_list<std::string_view>;

    // Handles the actions' events of the window (and what comes up to it from its children).
    TActionBinder(wxWindow& window, TActionList& actions);

    wxMenu* NewMenu(TLayout layout);
    // Empty categories are left out.
    void AppendMenu(wxMenuBar& bar, const wxString& caption, TLayout layout);
    void FillToolBar(wxToolBar& bar, TLayout layout);
    wxButton* NewButton(wxWindow* parent, std::string_view action, const wxString& name);
    wxButton* NewSpeedButton(wxWindow* parent, std::string_view action, const wxString& name);

private:
    void OnUpdate(wxUpdateUIEvent& event);
    int IdOf(std::string_view action) const;
    const TAction& ActionOf(int id) const;
    void Populate(wxMenu& menu, const std::string_view*& part, const std::string_view* end);

    wxWindow& m_window;
    TActionList& m_actions;
    int m_firstId;
};

// A caption with its access key marked becomes plain text.
wxString PlainCaption(std::string_view caption);
wxString ToWx(std::string_view text);

} // namespace murala
