#include "uMain.h"
#include "uProgramFolder.h"

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
        const std::string folder = ProgramFolder();
        m_desktop = NewDesktop(folder);
        m_locale = NewLocale();
        m_clock = NewClock();
        auto* fMain = new TfMain({*m_desktop, *m_locale, *m_clock, folder});
        fMain->Activate();
        return true;
    }

private:
    std::unique_ptr<TDesktop> m_desktop;
    std::unique_ptr<TLocale> m_locale;
    std::unique_ptr<TClock> m_clock;
};

} // namespace murala

wxIMPLEMENT_APP(murala::TMuralaApp);
