#include "uMuralaApp.h"

#include "uMain.h"
#include "uWindowSystem.h"

namespace murala
{

// The system asks every window, dialogs too, whether the session may end, and the toolkit would
// close the main window then. The main window's own handle is listened to (uSessionEnd.h).
TMuralaApp::TMuralaApp()
{
    for (const auto& question : {wxEVT_QUERY_END_SESSION, wxEVT_END_SESSION})
        Bind(question, [](wxCloseEvent&) {});
}

bool TMuralaApp::Initialize(int& argc, wxChar** argv)
{
    return StartLean([&] { return wxApp::Initialize(argc, argv); });
}

bool TMuralaApp::OnExceptionInMainLoop()
{
    try {
        throw;
    } catch (const std::exception& error) {
        if (auto* main = dynamic_cast<TfMain*>(GetTopWindow()))
            main->Murala().Core.Report(TReport::StatusLine, error);
    } catch (...) {
        return wxApp::OnExceptionInMainLoop();
    }
    return true;
}

} // namespace murala
