#include "uMuralaApp.h"

#include "uMain.h"
#include "uWindowSystem.h"

namespace murala
{

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
            main->ReportError(error, TReport::StatusLine);
    } catch (...) {
        return wxApp::OnExceptionInMainLoop();
    }
    return true;
}

} // namespace murala
