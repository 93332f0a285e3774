// The wheel over a slider, a choice or a number that has not the focus scrolls the page on which
// the control lies: it does not change a value that the user only passes.
#pragma once

#include <wx/eventfilter.h>

namespace murala
{

// Works while it lives.
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
