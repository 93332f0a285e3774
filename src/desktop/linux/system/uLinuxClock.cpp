#include "uClock.h"

#include <chrono>
#include <ctime>

namespace murala
{

namespace
{

class TLinuxClock : public TClock
{
public:
    TDateTime Now() override
    {
        using namespace std::chrono;
        const auto now = system_clock::now();
        const auto second = floor<seconds>(now);
        const std::time_t time = system_clock::to_time_t(second);
        // localtime_r would not notice a change of the time zone.
        const std::tm& local = *std::localtime(&time);
        const auto wholeSeconds =
            EncodeDateTime({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                            local.tm_min, std::min(local.tm_sec, 59)});
        return wholeSeconds.value_or(0) + duration<double>(now - second).count() / SecondsPerDay;
    }
};

} // namespace

std::unique_ptr<TClock> NewClock()
{
    return std::make_unique<TLinuxClock>();
}

} // namespace murala
