#include "uDoor.h"

namespace murala
{

void TDoor::Pass(const std::function<void()>& work) noexcept
{
    NoThrow([&] {
        try {
            work();
        } catch (...) {
            Post([thrown = std::current_exception()] { std::rethrow_exception(thrown); });
        }
    });
}

} // namespace murala
