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
        if (const auto region = services.Icons.GetIconRegion())
            DrawIconBox(picture, settings, *region);
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
