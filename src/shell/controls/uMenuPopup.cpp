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
    explicit TBuilder(TTrayModel& model) : m_model(model) {}

    void Fill(wxMenu& to, const TMenuBelow& menu)
    {
        std::vector<std::size_t> columns;
        const TMenuEntries entries = m_model.Children(menu);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (entries[i].BarBreak)
                columns.push_back(i);
            Append(to, entries[i]);
        }
        SetMenuColumns(to, columns);
    }
    void FillBelow(int id)
    {
        if (const auto found = m_unfilled.extract(id))
            Fill(*found.mapped(), std::get<TMenuBelow>(Target(id)));
    }
    TMenuTarget Target(int id) const
    {
        const auto index = static_cast<std::size_t>(id - FirstId);
        return id >= FirstId && index < m_targets.size() ? m_targets[index] : TMenuTarget();
    }

private:
    void Append(wxMenu& to, const TMenuEntry& entry)
    {
        if (entry.IsSeparator()) {
            to.AppendSeparator();
            return;
        }
        if (entry.BarBreak)
            to.Break();
        const int id = FirstId + static_cast<int>(m_targets.size());
        m_targets.push_back(entry.Target);
        wxString caption = ToWx(entry.Caption);
        auto below = entry.MenuBelow() != nullptr ? std::make_unique<wxMenu>() : nullptr;
        if (below != nullptr) {
            m_unfilled.emplace(id, below.get());
            // The toolkit's checked entries have no menus below.
            if (entry.Checked)
                caption = wxString(L"\x2713 ") + caption;
        }
        const bool isCheck = entry.Checked && below == nullptr;
        wxMenuItem* item = to.Append(new wxMenuItem(
            &to, id, caption, "", isCheck ? wxITEM_CHECK : wxITEM_NORMAL, below.release()));
        if (isCheck)
            item->Check();
        item->Enable(entry.Enabled);
    }

    TTrayModel& m_model;
    std::vector<TMenuTarget> m_targets; // of the entries, by their numbers
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

// The button that asked for the menu may still be down, and letting it go would close the menu. A
// menu that closes at once could not take the pointer and the keys: some window managers hold them
// until the window has its frame. It is shown again, then.
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

TMenuTarget PopupMenuAt(TTrayModel& model, const wxPoint& place)
{
    TBuilder builder(model);
    wxMenu built;
    builder.Fill(built, {});
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
    return builder.Target(chosen);
}

} // namespace murala
