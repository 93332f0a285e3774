#include "uMuralaApp.h"

#include "uMain.h"
#include "uWindowSystem.h"

namespace murala
{

// The system asks each window, dialogs too, whether the session may end, and the toolkit would then
// close the main window. TSessionEnd handles these messages instead.
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
