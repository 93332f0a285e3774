#include "uItemWork.h"

#include "uText.h"

namespace murala
{

std::size_t WorkOn(TCore& core, const TItems& items, std::string_view what,
                   const std::function<void(TMuWallpaper&)>& each)
{
    const TPauseScope pause(core.Pauses);
    const auto work = core.View.BeginWork(static_cast<int>(items.size()));
    std::size_t done = 0;
    for (TMuWallpaper* item : items) {
        if (!work->Step(static_cast<int>(done),
                        FormatText("%s:%s%s", {std::string(what), "\n", item->Title})))
            break;
        each(*item);
        ++done;
    }
    return done;
}

} // namespace murala
