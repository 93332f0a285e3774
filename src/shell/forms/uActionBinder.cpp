#include "uActionBinder.h"

#include "uActionImages.h"

#include <memory>

namespace murala
{

namespace
{

constexpr int ToolImageSide = 20;
constexpr int SpeedButtonImageSide = 16;

} // namespace

wxString ToWx(std::string_view text)
{
    return wxString::FromUTF8(text.data(), text.size());
}

wxString PlainCaption(std::string_view caption)
{
    return wxControl::RemoveMnemonics(ToWx(caption));
}

TActionBinder::TActionBinder(wxWindow& window, TActionList& actions)
    : m_window(window), m_actions(actions),
      m_firstId(wxWindow::NewControlId(static_cast<int>(actions.All().size())))
{
    const int lastId = m_firstId + static_cast<int>(actions.All().size()) - 1;
    const auto execute = [this](wxCommandEvent& event) { ActionOf(event.GetId()).Execute(); };
    m_window.Bind(wxEVT_MENU, execute, m_firstId, lastId);
    m_window.Bind(wxEVT_BUTTON, execute, m_firstId, lastId);
    m_window.Bind(wxEVT_UPDATE_UI, &TActionBinder::OnUpdate, this, m_firstId, lastId);
    wxUpdateUIEvent::SetUpdateInterval(100);
}

int TActionBinder::IdOf(std::string_view action) const
{
    return m_firstId + static_cast<int>(&m_actions[action] - m_actions.All().data());
}

const TAction& TActionBinder::ActionOf(int id) const
{
    return m_actions.All()[static_cast<std::size_t>(id - m_firstId)];
}

void TActionBinder::OnUpdate(wxUpdateUIEvent& event)
{
    const TAction& action = ActionOf(event.GetId());
    event.Enable(action.Enabled());
    if (action.Checkable)
        event.Check(action.Checked());
    if (auto* bar = wxDynamicCast(event.GetEventObject(), wxToolBar)) {
        if (bar->GetToolShortHelp(event.GetId()) != ToWx(action.Hint))
            bar->SetToolShortHelp(event.GetId(), ToWx(action.Hint));
    }
}

void TActionBinder::Populate(wxMenu& menu, const std::string_view*& part,
                             const std::string_view* end)
{
    bool isSeparatorDue = false;
    for (; part != end && *part != "<"; ++part) {
        if (*part == "-") {
            isSeparatorDue = menu.GetMenuItemCount() > 0;
            continue;
        }
        const auto append = [&](wxMenuItem* item) {
            if (isSeparatorDue)
                menu.AppendSeparator();
            isSeparatorDue = false;
            menu.Append(item);
        };
        if (part->ends_with('>')) {
            const wxString caption = ToWx(part->substr(0, part->size() - 1));
            auto submenu = std::make_unique<wxMenu>();
            Populate(*submenu, ++part, end);
            if (submenu->GetMenuItemCount() > 0)
                append(
                    new wxMenuItem(&menu, wxID_ANY, caption, "", wxITEM_NORMAL, submenu.release()));
            continue;
        }
        const TAction& action = m_actions[*part];
        if (!action.IsOffered())
            continue;
        wxString caption = ToWx(action.Caption);
        if (!action.Shortcut.empty())
            caption += "\t" + ToWx(action.Shortcut);
        append(new wxMenuItem(&menu, IdOf(*part), caption, ToWx(action.Hint),
                              action.Checkable ? wxITEM_CHECK : wxITEM_NORMAL));
    }
}

wxMenu* TActionBinder::NewMenu(TLayout layout)
{
    auto* menu = new wxMenu;
    const std::string_view* part = layout.begin();
    Populate(*menu, part, layout.end());
    return menu;
}

void TActionBinder::AppendMenu(wxMenuBar& bar, const wxString& caption, TLayout layout)
{
    wxMenu* menu = NewMenu(layout);
    if (menu->GetMenuItemCount() > 0)
        bar.Append(menu, caption);
    else
        delete menu;
}

void TActionBinder::FillToolBar(wxToolBar& bar, TLayout layout)
{
    for (const std::string_view part : layout) {
        if (part == "-") {
            bar.AddSeparator();
            continue;
        }
        const TAction& action = m_actions[part];
        if (action.IsOffered())
            bar.AddTool(IdOf(part), PlainCaption(action.Caption), ActionImage(part, ToolImageSide),
                        ToWx(action.Hint), action.Checkable ? wxITEM_CHECK : wxITEM_NORMAL);
    }
    bar.Realize();
}

wxButton* TActionBinder::NewButton(wxWindow* parent, std::string_view action, const wxString& name)
{
    auto* button = new wxButton(parent, IdOf(action), ToWx(m_actions[action].Caption),
                                wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
    if (!m_actions[action].Hint.empty())
        button->SetToolTip(ToWx(m_actions[action].Hint));
    return button;
}

wxButton* TActionBinder::NewSpeedButton(wxWindow* parent, std::string_view action,
                                        const wxString& name)
{
    wxButton* button = NewButton(parent, action, name);
    button->SetBitmap(ActionImage(action, SpeedButtonImageSide));
    return button;
}

} // namespace murala
