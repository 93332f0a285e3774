// The main window's actions for pictures that are drawn: gradients, calendar, icon box.

#include "uMain.h"

#include "uAddOnsPage.h"
#include "uGradientDesk.h"
#include "uGradientEditor.h"
#include "uIconBoxOptions.h"
#include "uMainCalendar.h"

namespace murala
{

void TfMain::BindAddOnActions()
{
    TAddOnDesk& addOns = m_murala.AddOns;
    const TAddOnSwitches& switches = m_murala.Core.Settings.AddOns;
    for (const TAddOn& addOn : AddOnList()) {
        TAction& action = alMain[addOn.Switch];
        action.OnExecute = [&] { addOns.Switch(addOn.Use, !(switches.*addOn.Use)); };
        action.OnChecked = [&] { return switches.*addOn.Use; };
    }

    alMain[aNewGradient].OnExecute = [this] { aNewGradientExecute(); };
    alMain[aCalendarOptions].OnExecute = [this] { aCalendarOptionsExecute(); };
    alMain[aIconBoxOptions].OnExecute = [this] { aIconBoxOptionsExecute(); };
    alMain[aConfigureAddOn].OnExecute = [this] { alMain.Execute(m_panel->AddOnOptions()); };
    alMain[aConfigureAddOn].OnEnabled = [this] {
        const TActionId options = m_panel != nullptr ? m_panel->AddOnOptions() : ActionCount;
        return options != ActionCount && alMain[options].Enabled();
    };
}

void TfMain::aNewGradientExecute()
{
    TfGradientEditor dialog(this);
    if (RunModal(dialog) == wxID_OK)
        AddGradient(m_murala.Core, m_murala.Desk, m_murala.Storage, dialog.Shade(),
                    dialog.Direction());
}

void TfMain::aCalendarOptionsExecute()
{
    TfMainCalendar dialog(this, m_services);
    if (RunModal(dialog) == wxID_OK)
        m_murala.AddOns.CalendarChanged();
}

void TfMain::aIconBoxOptionsExecute()
{
    TfIconBoxOptions dialog(this, m_murala.Core.Settings.IconBox);
    if (RunModal(dialog) == wxID_OK)
        m_murala.AddOns.SetIconBox(dialog.Settings());
}

} // namespace murala
