#include "uAddOns.h"

#include "uIconBox.h"
#include "uMuCalendar.h"

namespace murala
{

namespace
{

void DrawCalendar(const TAddOnServices& services, TBitmap& picture)
{
    TMuCalendar calendar(services.Text, services.DateNames, services.Clock.Now());
    calendar.LoadFromFile(services.ProgramFolder);
    calendar.Draw(picture);
}

} // namespace

TBeforeSave DesktopAddOns(const TAddOnServices& services, const TMuSettings& settings)
{
    return [services, settings](TBitmap& picture) {
        if (settings.UseCalendar)
            DrawCalendar(services, picture);
        if (!settings.UseIconBox)
            return;
        const TIconRegion region = services.Icons.GetIconRegion();
        if (region.IsKnown())
            DrawIconBox(picture, settings, region.Rects);
    };
}

TBeforeSave PreviewAddOns(const TAddOnServices& services, const TMuSettings& settings)
{
    return [services, useCalendar = settings.UseCalendar](TBitmap& picture) {
        if (useCalendar)
            DrawCalendar(services, picture);
    };
}

} // namespace murala
