#include "uSiblings.h"

namespace murala
{

namespace
{
constexpr std::int64_t CloseTimeLimitMs = 5000;
}

bool CloseWindowAndWait(TSiblings& siblings, TMessageLoop& loop, TWindowId window)
{
    const std::int64_t start = loop.Milliseconds();
    while (siblings.IsWindow(window)) {
        if (loop.Milliseconds() - start >= CloseTimeLimitMs)
            return false;
        siblings.PostClose(window);
        loop.HandleOneMessage();
    }
    return true;
}

} // namespace murala
