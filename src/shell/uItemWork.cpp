#include "uItemWork.h"

#include "uText.h"

#include <stdexcept>

namespace murala
{

namespace
{

TPauses& RequireIdle(TPauses& pauses)
{
    if (pauses.IsWorking())
        throw std::runtime_error("Something else is being done. Please try again.");
    return pauses;
}

} // namespace

TWork::TWork(TCore& core, int range)
    : m_core(core), m_scope(RequireIdle(core.Pauses)), m_work(core.View.BeginWork(range))
{
}

void TWork::Finish(const std::string& text)
{
    m_core.Status.Note(text);
    m_work->Finish(text);
}

std::size_t WorkOn(TCore& core, const TItems& items, std::string_view what,
                   const std::function<void(TMuWallpaper&)>& each)
{
    TWork work(core, static_cast<int>(items.size()));
    std::size_t done = 0;
    for (TMuWallpaper* item : items) {
        if (!work.Step(static_cast<int>(done),
                       FormatText("%s:%s%s", {std::string(what), "\n", item->Title})))
            break;
        each(*item);
        ++done;
    }
    return done;
}

} // namespace murala
