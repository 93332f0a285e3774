#include "uActionBinder.h"

#include "uActionImages.h"
#include "uWindowSystem.h"

#include <memory>
#include <utility>

namespace murala
{

namespace
{

constexpr int ToolImageSide = 20;
constexpr int SpeedButtonImageSide = 16;
constexpr std::pair<TActionId, TFileIcon> FileIcons[] = {
    {aDisplayProperties, TFileIcon::DisplayProperties}, {aGetWallpaper, TFileIcon::WebPage}};

} // namespace

TActionBinder::TActionBinder(wxWindow& window, TActionList& actions)
    : m_window(window), m_actions(actions),
      m_firstId(wxWindow::NewControlId(static_cast<int>(actions.All().size())))
{
    const int lastId = m_firstId + static_cast<int>(actions.All().size()) - 1;
    const auto execute = [this](wxCommandEvent& event) {
        m_actions.Request(ActionOf(event.GetId()));
    };
    m_window.Bind(wxEVT_MENU, execute, m_firstId, lastId);
    m_window.Bind(wxEVT_BUTTON, execute, m_firstId, lastId);
    m_window.Bind(wxEVT_UPDATE_UI, &TActionBinder::alMainUpdate, this, m_firstId, lastId);
    wxUpdateUIEvent::SetUpdateInterval(100);
}

void TActionBinder::alMainUpdate(wxUpdateUIEvent& event)
{
    const TAction& action = m_actions[ActionOf(event.GetId())];
    event.Enable(action.Enabled());
    if (action.Checkable)
        event.Check(action.Checked());
    if (auto* bar = dynamic_cast<wxToolBar*>(event.GetEventObject())) {
        if (bar->GetToolShortHelp(event.GetId()) != ToWx(action.Hint))
            bar->SetToolShortHelp(event.GetId(), ToWx(action.Hint));
    }
}

std::string TActionBinder::HintOf(int id) const
{
    const bool isAction = id >= m_firstId && id < IdOf(ActionCount);
    return isAction ? m_actions[ActionOf(id)].Hint : std::string();
}

wxMenuItem* TActionBinder::NewItem(wxMenu& menu, const TAction& action)
{
    wxString caption = ToWx(action.Caption);
    if (!action.Shortcut.empty())
        caption += "\t" + ToWx(action.Shortcut);
    return new wxMenuItem(&menu, IdOf(action.Id), caption, ToWx(action.Hint),
                          action.Checkable ? wxITEM_CHECK : wxITEM_NORMAL);
}

void TActionBinder::Populate(wxMenu& menu, const TMenuPart*& part, const TMenuPart* end)
{
    bool isSeparatorDue = false;
    const auto append = [&](wxMenuItem* item) {
        if (isSeparatorDue)
            menu.AppendSeparator();
        isSeparatorDue = false;
        menu.Append(item);
    };
    for (; part != end && part->Text != "<"; ++part) {
        if (part->Text == "-") {
            isSeparatorDue = menu.GetMenuItemCount() > 0;
        } else if (part->Text.ends_with('>')) {
            const wxString caption = ToWx(part->Text.substr(0, part->Text.size() - 1));
            auto submenu = std::make_unique<wxMenu>();
            Populate(*submenu, ++part, end);
            if (submenu->GetMenuItemCount() > 0)
                append(
                    new wxMenuItem(&menu, wxID_ANY, caption, "", wxITEM_NORMAL, submenu.release()));
        } else if (m_actions[part->Action].IsOffered()) {
            append(NewItem(menu, m_actions[part->Action]));
        }
    }
}

wxMenu* TActionBinder::NewMenu(TLayout layout)
{
    auto* menu = new wxMenu;
    const TMenuPart* part = layout.begin();
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

void TActionBinder::ShowFileIcons(wxMenuBar& bar)
{
    for (const auto& [action, icon] : FileIcons) {
        wxMenuItem* item = bar.FindItem(IdOf(action));
        if (item == nullptr)
            continue;
        const wxBitmapBundle image = FileIcon(icon);
        if (!image.IsOk())
            continue;
        // The toolkit takes an entry's image only while the entry is appended.
        wxMenu& menu = *item->GetMenu();
        std::size_t place = 0;
        menu.FindChildItem(item->GetId(), &place);
        menu.Remove(item);
        item->SetBitmap(image);
        menu.Insert(place, item);
    }
}

void TActionBinder::FillToolBar(wxToolBar& bar, TLayout layout)
{
    for (const TMenuPart& part : layout) {
        if (!part.Text.empty()) {
            bar.AddSeparator();
            continue;
        }
        const TAction& action = m_actions[part.Action];
        if (action.IsOffered())
            bar.AddTool(IdOf(action.Id), PlainCaption(action.Caption),
                        ActionImage(action.Id, ToolImageSide), ToWx(action.Hint),
                        action.Checkable ? wxITEM_CHECK : wxITEM_NORMAL);
    }
    bar.Realize();
}

wxButton* TActionBinder::NewButton(wxWindow* parent, TActionId action, const wxString& name)
{
    auto* button = new wxButton(parent, IdOf(action), ToWx(m_actions[action].Caption),
                                wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
    if (!m_actions[action].Hint.empty())
        button->SetToolTip(ToWx(m_actions[action].Hint));
    return button;
}

wxButton* TActionBinder::NewSpeedButton(wxWindow* parent, TActionId action, const wxString& name)
{
    wxButton* button = NewButton(parent, action, name);
    button->SetLabel(
        PlainCaption(m_actions[action].Caption)); // the letter belongs to a page or a menu
    button->SetBitmap(ActionImage(action, SpeedButtonImageSide));
    return button;
}

wxCheckBox* TActionBinder::NewCheckBox(wxWindow* parent, TActionId action, const wxString& name)
{
    auto* box = new wxCheckBox(parent, wxID_ANY, PlainCaption(m_actions[action].Caption),
                               wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
    box->Bind(wxEVT_CHECKBOX, [this, action](wxCommandEvent&) { m_actions.Request(action); });
    return box;
}

} // namespace murala
