// Over a slider, a choice or a number without the focus, the mouse wheel scrolls the page instead
// of changing the value: a user who scrolls past a control does not want to change it.
#pragma once

#include <wx/eventfilter.h>

namespace murala
{

// Works as long as it lives.
class TWheelFilter : public wxEventFilter
{
public:
    TWheelFilter();
    TWheelFilter(const TWheelFilter&) = delete;
    TWheelFilter& operator=(const TWheelFilter&) = delete;
    ~TWheelFilter() override;

private:
    int FilterEvent(wxEvent& event) override;
};

} // namespace murala
