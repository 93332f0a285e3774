#include "uMain.h"
#include "uMuralaApp.h"
#include "uProcessMemory.h"
#include "uProgramEntry.h"
#include "uProgramFolder.h"
#include "uSystemCheck.h"
#include "uToolkitDoor.h"

#include <wx/log.h>

#include <stdexcept>

namespace murala
{

class TProgramApp : public TMuralaApp
{
public:
    TProgramApp(std::vector<std::string> arguments, std::unique_ptr<TInstanceLink> link)
        : m_arguments(std::move(arguments)), m_link(std::move(link))
    {
    }

    bool OnInit() override
    {
        delete wxLog::SetActiveTarget(nullptr); // from now on there can be message boxes
        SetAppName("Murala");
        SetClassName("murala");
        m_services = std::make_unique<THomeServices>(m_door);
        auto* fMain = new TfMain(m_services->Services(), *m_link);
        fMain->Activate(m_arguments);
        return true;
    }

private:
    std::vector<std::string> m_arguments;
    TToolkitDoor m_door;
    std::unique_ptr<THomeServices> m_services;
    std::unique_ptr<TInstanceLink> m_link;
};

// The program's entry comes before the toolkit, which needs a display: what a package's script or a
// remote shell asks for works without one.
int Run(int argc, char** argv)
{
    std::vector<std::string> arguments = ProgramArguments();
    if (const auto answer = AnswerBeforeEntry(arguments))
        return PrintAnswer(*answer) ? 0 : 1;
    if (const std::string problem = SystemProblem(); !problem.empty())
        throw std::runtime_error(problem);
    ShareMemoryOfThreads();
    auto link = NewInstanceLink();
    const TEntry entry = EnterProgram(arguments, *NewFileMenu(), *NewFileQueue(), *link);
    if (entry != TEntry::Run)
        return entry == TEntry::End ? 0 : 1;
    wxLog::SetActiveTarget(new wxLogStderr); // without a display a message box would crash
    wxApp::SetInstance(new TProgramApp(std::move(arguments), std::move(link)));
    return wxEntry(argc, argv) == 0 ? 0 : 1;
}

} // namespace murala

int main(int argc, char** argv)
try {
    return murala::Run(argc, argv);
} catch (const std::exception& error) {
    murala::TellBeforeWindows(error.what());
    return 1;
}
