// The main window's actions for pictures that are drawn: gradients, calendar, icon box.

#include "uMain.h"

#include "uAddOnsPage.h"

namespace murala
{

void TfMain::BindAddOnActions()
{
    TAddOnDesk& addOns = m_murala.AddOns;
    const TMuSettings& settings = m_murala.Core.Settings;
    TAction& calendar = alMain[aCalendar];
    calendar.OnExecute = [&] { addOns.SetUseCalendar(!settings.UseCalendar); };
    calendar.OnChecked = [&settings] { return settings.UseCalendar; };
    TAction& iconBox = alMain[aIconBox];
    iconBox.OnExecute = [&] { addOns.SetUseIconBox(!settings.UseIconBox); };
    iconBox.OnChecked = [&settings] { return settings.UseIconBox; };

    alMain[aConfigureAddOn].OnExecute = [this] { alMain.Execute(m_addOnsPage->OptionsAction()); };
    alMain[aConfigureAddOn].OnEnabled = [this] {
        const TActionId options =
            m_addOnsPage != nullptr ? m_addOnsPage->OptionsAction() : ActionCount;
        return options != ActionCount && alMain[options].Enabled();
    };
}

} // namespace murala
