#include "uAddOnDesk.h"

#include "uAddOns.h"
#include "uText.h"

#include <new>
#include <utility>

namespace murala
{

namespace
{

// A wallpaper without its calendar is better than none.
TBeforeSave LeftOutOnFailure(TBeforeSave draw, std::string_view name, std::string& problem)
{
    return [draw = std::move(draw), name, &problem](TBitmap& picture) {
        try {
            draw(picture);
        } catch (const std::runtime_error& error) {
            problem = FormatText("The %s is left out. %s", {name, error.what()});
        }
    };
}

TAddOnServices ServicesOf(const TCore& core)
{
    const TServices& services = core.Services;
    return {services.ProgramFolder, services.Text, services.DateNames, services.Clock,
            services.IconView};
}

} // namespace

void TAddOnDesk::SetUseCalendar(bool use)
{
    m_core.Settings.UseCalendar = use;
    Changed();
}

void TAddOnDesk::SetUseIconBox(bool use)
{
    m_core.Settings.UseIconBox = use;
    Changed();
}

TIconBoxOptions TAddOnDesk::IconBox() const
{
    const TMuSettings& settings = m_core.Settings;
    return {settings.IconBoxGamma, settings.IconBoxBorder, settings.IconBoxOnlyIcons,
            settings.IconBoxBorderColor};
}

void TAddOnDesk::SetIconBox(const TIconBoxOptions& options)
{
    TMuSettings& settings = m_core.Settings;
    settings.IconBoxGamma = options.Gamma;
    settings.IconBoxBorder = options.Border;
    settings.IconBoxOnlyIcons = options.OnlyIcons;
    settings.IconBoxBorderColor = options.BorderColor;
    Changed();
}

std::string TAddOnDesk::IconBoxProblem() const
{
    const TIconRegion region = m_core.Services.IconView.GetIconRegion();
    return region.IsKnown() ? ""
                            : FormatText("Nothing is drawn for the icon box. %s", {region.Problem});
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
    // Each by itself: one that cannot be drawn does not take the other with it.
    TMuSettings calendar = core.Settings, iconBox = core.Settings;
    calendar.UseIconBox = false;
    iconBox.UseCalendar = false;
    return [drawCalendar =
                LeftOutOnFailure(DesktopAddOns(ServicesOf(core), calendar), "calendar", problem),
            drawIconBox = LeftOutOnFailure(DesktopAddOns(ServicesOf(core), iconBox), "icon box",
                                           problem)](TBitmap& picture) {
        drawCalendar(picture);
        drawIconBox(picture);
    };
}

TBeforeSave AddOnsForPreview(const TCore& core, std::string& problem)
{
    return LeftOutOnFailure(PreviewAddOns(ServicesOf(core), core.Settings), "calendar", problem);
}

} // namespace murala
