// Work on many items that may take longer than a moment.
#pragma once

#include "uCore.h"

#include <functional>
#include <string_view>

namespace murala
{

// Only one work goes on at a time; beginning another one is refused.
class TWork
{
public:
    // Throws std::runtime_error while other work goes on.
    TWork(TCore& core, int range);

    bool Step(int position, const std::string& text) { return m_work->Step(position, text); }
    // The last step, of unknown length: `text` says what it is.
    void Finish(const std::string& text);

private:
    TCore& m_core;
    TWorkScope m_scope;
    std::unique_ptr<TLongWork> m_work;
};

// Calls `each` with one item after the other, shows the progress, and lets the user end the work
// between two items. Returns how many were done. `what` stands before the item's title, e.g.
// "Renaming Wallpaper".
std::size_t WorkOn(TCore& core, const TItems& items, std::string_view what,
                   const std::function<void(TMuWallpaper&)>& each);

} // namespace murala
