#include "uAddOnDesk.h"

#include "uIconBox.h"
#include "uMuCalendar.h"
#include "uText.h"

namespace murala
{

namespace
{

// The month of this moment, as the user's file has it.
void DrawCalendar(TBitmap& picture, const TCore& core)
{
    const TServices& services = core.Services;
    TMuCalendar calendar(services.Text, services.DateNames, services.Clock.Now());
    calendar.LoadFromFile(services.ProgramFolder);
    calendar.Draw(picture);
}

void DrawBoxOfIcons(TBitmap& picture, const TCore& core)
{
    const TIconRegion region = core.Services.IconView.GetIconRegion();
    if (region.IsKnown())
        DrawIconBox(picture, core.Settings.IconBox, region.Rects);
}

std::string ProblemOfIcons(const TCore& core)
{
    const TIconRegion region = core.Services.IconView.GetIconRegion();
    return region.IsKnown() ? ""
                            : FormatText("Nothing is drawn for the icon box. %s", {region.Problem});
}

constexpr TAddOn Table[] = {
    {"Calendar", "calendar", aCalendar, aCalendarOptions, &TAddOnSwitches::UseCalendar, true,
     DrawCalendar, nullptr},
    {"Icon Box", "icon box", aIconBox, aIconBoxOptions, &TAddOnSwitches::UseIconBox, false,
     DrawBoxOfIcons, ProblemOfIcons},
};

// A wallpaper without its calendar is better than none.
void DrawAddOns(TBitmap& picture, const TCore& core, bool isPreview, std::string& problem)
{
    for (const TAddOn& addOn : Table)
        try {
            if (core.Settings.AddOns.*addOn.Use && (addOn.IsInPreview || !isPreview))
                addOn.Draw(picture, core);
        } catch (const std::runtime_error& error) {
            problem = FormatText("The %s is left out. %s", {addOn.Name, error.what()});
        }
}

} // namespace

std::span<const TAddOn> AddOnList()
{
    return Table;
}

void TAddOnDesk::Switch(bool TAddOnSwitches::*use, bool on)
{
    m_core.Settings.AddOns.*use = on;
    Changed();
}

void TAddOnDesk::SetIconBox(const TIconBoxSettings& settings)
{
    m_core.Settings.IconBox = settings;
    Changed();
}

std::string TAddOnDesk::Problems() const
{
    std::string problems;
    for (const TAddOn& addOn : Table)
        if (const std::string problem = addOn.Problem ? addOn.Problem(m_core) : "";
            !problem.empty())
            problems += (problems.empty() ? "" : "\n") + problem;
    return problems;
}

void TAddOnDesk::Changed()
{
    m_core.Listeners.Tell(&TListener::AddOnsChanged);
    if (m_core.Updating)
        return;
    m_core.Listeners.Tell(&TListener::PreviewChanged, false);
    m_storage.SaveSettings(AllSaveFlags);
}

TBeforeSave AddOnsForDesktop(const TCore& core, std::string& problem)
{
    return [&](TBitmap& picture) { DrawAddOns(picture, core, false, problem); };
}

TBeforeSave AddOnsForPreview(const TCore& core, std::string& problem)
{
    return [&](TBitmap& picture) { DrawAddOns(picture, core, true, problem); };
}

} // namespace murala
