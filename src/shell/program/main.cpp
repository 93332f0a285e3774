#include "uMain.h"
#include "uProgramEntry.h"

#include <wx/app.h>

namespace murala
{

class TMuralaApp : public wxApp
{
public:
    bool OnInit() override
    {
        SetAppName("Murala");
        SetClassName("murala");
        std::vector<std::string> arguments;
        for (int i = 1; i < argc; ++i)
            arguments.push_back(wxString(argv[i]).utf8_string());
        m_services = std::make_unique<THomeServices>();
        m_link = NewInstanceLink();
        if (EnterProgram(arguments, m_services->Registry(), *m_link) == TEntry::End)
            return false;
        auto* fMain = new TfMain(m_services->Services());
        fMain->Activate(arguments, *m_link);
        return true;
    }

private:
    std::unique_ptr<THomeServices> m_services;
    std::unique_ptr<TInstanceLink> m_link;
};

} // namespace murala

wxIMPLEMENT_APP(murala::TMuralaApp);
