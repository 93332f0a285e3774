// The application object that the program and the tests of its windows share.
#pragma once

#include "uDialog.h"
#include "uWheelFilter.h"

#include <wx/app.h>

namespace murala
{

class TMuralaApp : public wxApp
{
public:
    TMuralaApp();
    bool Initialize(int& argc, wxChar** argv) override;
    // The texts are English wherever the user lives.
    wxLayoutDirection GetLayoutDirection() const override { return wxLayout_LeftToRight; }
    // Reports what an event's handler has thrown; the program goes on.
    bool OnExceptionInMainLoop() override;

private:
    TWheelFilter m_wheelFilter;
    TNestedDialogs m_nestedDialogs;
};

} // namespace murala
