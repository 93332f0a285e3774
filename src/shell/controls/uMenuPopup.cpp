#include "uMenuPopup.h"

#include "uWindowSystem.h"
#include "uWxText.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/utils.h>

namespace murala
{

namespace
{

// Above the toolkit's own numbers, whose entries get captions of theirs.
constexpr int FirstId = wxID_HIGHEST + 10000;

// Milliseconds.
constexpr int LongestWait = 400, WaitingStep = 10;
constexpr int QuickestClose = 50; // of a user
constexpr int LongestClick = 3000;
constexpr int MostTries = 10;

// Menus below are filled when the entry that leads to them is reached: ten thousand entries take
// the toolkit a second.
class TBuilder
{
public:
    void Fill(wxMenu& to, const TMenuItem& from)
    {
        std::vector<std::size_t> columns;
        for (std::size_t i = 0; i < from.Items.size(); ++i) {
            if (from.Items[i].BarBreak)
                columns.push_back(i);
            Append(to, from.Items[i]);
        }
        SetMenuColumns(to, columns);
    }
    void FillBelow(int id)
    {
        if (const auto found = m_unfilled.extract(id))
            Fill(*found.mapped(), *Item(id));
    }
    const TMenuItem* Item(int id) const
    {
        const auto index = static_cast<std::size_t>(id - FirstId);
        return id >= FirstId && index < m_items.size() ? m_items[index] : nullptr;
    }

private:
    void Append(wxMenu& to, const TMenuItem& item)
    {
        if (item.IsSeparator()) {
            to.AppendSeparator();
            return;
        }
        if (item.BarBreak)
            to.Break();
        const int id = FirstId + static_cast<int>(m_items.size());
        m_items.push_back(&item);
        wxString caption = ToWx(MenuLabel(item));
        auto below = item.Items.empty() ? nullptr : std::make_unique<wxMenu>();
        if (below != nullptr) {
            m_unfilled.emplace(id, below.get());
            // The toolkit's checked entries have no menus below.
            if (item.Checked)
                caption = wxString(L"\x2713 ") + caption;
        }
        const bool isCheck = item.Checked && below == nullptr;
        wxMenuItem* entry = to.Append(new wxMenuItem(
            &to, id, caption, "", isCheck ? wxITEM_CHECK : wxITEM_NORMAL, below.release()));
        if (isCheck)
            entry->Check();
        entry->Enable(item.Enabled);
    }

    std::vector<const TMenuItem*> m_items;
    std::map<int, wxMenu*> m_unfilled;
};

void Await(const std::function<bool()>& condition, int longest)
{
    for (int waited = 0; !condition() && waited < longest; waited += WaitingStep) {
        wxYield();
        wxMilliSleep(WaitingStep);
    }
}

// Shows it and waits, but not for long, until the desktop has done so.
void ShowNow(wxFrame& window)
{
    const auto isThere = std::make_shared<bool>(false); // the window tells it for longer
    window.Bind(wxEVT_PAINT, [=](wxPaintEvent& event) {
        event.Skip();
        *isThere = true;
    });
    window.Bind(wxEVT_ACTIVATE, [=](wxActivateEvent& event) {
        event.Skip();
        *isThere = true;
    });
    window.Show();
    Await([&] { return *isThere; }, LongestWait);
}

bool IsClickOver()
{
    const wxMouseState mouse = wxGetMouseState();
    return !mouse.LeftIsDown() && !mouse.RightIsDown() && !mouse.MiddleIsDown();
}

// The click that asks for it may go on, and its end would close the menu. One that closes at once
// could not take the pointer and the keys yet: some window managers hold them until the window has
// its frame.
int ChooseFrom(wxFrame& owner, wxMenu& menu)
{
    Await(IsClickOver, LongestClick);
    int chosen = wxID_NONE;
    for (int tries = 0; tries < MostTries; ++tries) {
        const wxLongLong begin = wxGetUTCTimeMillis();
        RunAsClicked(owner, [&] { chosen = owner.GetPopupMenuSelectionFromUser(menu, 0, 0); });
        if (chosen != wxID_NONE || wxGetUTCTimeMillis() - begin >= QuickestClose)
            break;
        Await([] { return false; }, QuickestClose);
    }
    return chosen;
}

} // namespace

const TMenuItem* PopupMenuAt(const TMenuItem& menu, const wxPoint& place)
{
    TBuilder builder;
    wxMenu built;
    builder.Fill(built, menu);
    // A menu needs a window that it belongs to, on some desktops one that is really there.
    auto* owner = new wxFrame(
        nullptr, wxID_ANY, "", place, wxSize(1, 1),
        wxBORDER_NONE | wxFRAME_NO_TASKBAR | wxFRAME_TOOL_WINDOW | wxSTAY_ON_TOP, "TfMenuOwner");
    owner->Bind(wxEVT_MENU_HIGHLIGHT, [&](wxMenuEvent& event) {
        event.Skip();
        builder.FillBelow(event.GetMenuId());
    });
    ShowNow(*owner);
    // There, whatever the window's place is: not every desktop tells it, or lets it be chosen.
    const int chosen = ChooseFrom(*owner, built);
    owner->Destroy();
    return builder.Item(chosen);
}

} // namespace murala
