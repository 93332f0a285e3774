#include "uWheelFilter.h"

#include <algorithm>

#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/event.h>
#include <wx/scrolwin.h>
#include <wx/slider.h>
#include <wx/spinctrl.h>

namespace murala
{

namespace
{

bool ChangesByWheel(const wxWindow& window)
{
    for (const wxClassInfo* kind : {wxCLASSINFO(wxSlider), wxCLASSINFO(wxChoice),
                                    wxCLASSINFO(wxComboBox), wxCLASSINFO(wxSpinCtrl)})
        if (window.IsKindOf(kind))
            return true;
    return false;
}

bool HasFocusWithin(const wxWindow& window)
{
    const wxWindow* focus = wxWindow::FindFocus();
    while (focus != nullptr && focus != &window)
        focus = focus->GetParent();
    return focus != nullptr;
}

wxScrollHelperBase* ScrolledParent(const wxWindow& window)
{
    for (wxWindow* parent = window.GetParent(); parent != nullptr; parent = parent->GetParent())
        if (auto* page = dynamic_cast<wxScrollHelperBase*>(parent))
            return page;
    return nullptr;
}

void ScrollBy(wxScrollHelperBase& page, const wxMouseEvent& wheel)
{
    const int turned = wheel.GetWheelRotation() * wheel.GetLinesPerAction();
    const int lines = turned / std::max(wheel.GetWheelDelta(), 1);
    page.Scroll(wxDefaultCoord, std::max(page.GetViewStart().y - lines, 0));
}

} // namespace

TWheelFilter::TWheelFilter()
{
    wxEvtHandler::AddFilter(this);
}

TWheelFilter::~TWheelFilter()
{
    wxEvtHandler::RemoveFilter(this);
}

int TWheelFilter::FilterEvent(wxEvent& event)
{
    if (event.GetEventType() != wxEVT_MOUSEWHEEL)
        return Event_Skip;
    const auto* window = dynamic_cast<wxWindow*>(event.GetEventObject());
    if (window == nullptr || !ChangesByWheel(*window) || HasFocusWithin(*window))
        return Event_Skip;
    if (wxScrollHelperBase* page = ScrolledParent(*window))
        ScrollBy(*page, dynamic_cast<wxMouseEvent&>(event));
    return Event_Processed;
}

} // namespace murala
