// Runs the tests inside a program with windows.

#include "uMuralaApp.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/init.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new murala::TMuralaApp);
    if (!wxEntryStart(argc, argv))
        return 1;
    wxTheApp->SetExitOnFrameDelete(false);
    const int result = RUN_ALL_TESTS();
    wxEntryCleanup();
    return result;
}
