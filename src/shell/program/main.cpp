#include "uMain.h"
#include "uMuralaApp.h"
#include "uProgramEntry.h"
#include "uProgramFolder.h"

namespace murala
{

class TProgramApp : public TMuralaApp
{
public:
    bool OnInit() override
    {
        SetAppName("Murala");
        SetClassName("murala");
        const std::vector<std::string> arguments = ProgramArguments();
        m_services = std::make_unique<THomeServices>();
        m_link = NewInstanceLink();
        const TServices services = m_services->Services();
        if (EnterProgram(arguments, services.FileMenu, services.FileQueue, *m_link) != TEntry::Run)
            return false;
        auto* fMain = new TfMain(services, *m_link);
        fMain->Activate(arguments);
        return true;
    }

private:
    std::unique_ptr<THomeServices> m_services;
    std::unique_ptr<TInstanceLink> m_link;
};

} // namespace murala

wxIMPLEMENT_APP(murala::TProgramApp);
