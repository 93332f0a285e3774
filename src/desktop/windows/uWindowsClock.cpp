#include "uClock.h"

#include <windows.h>

namespace murala
{

namespace
{

class TWindowsClock : public TClock
{
public:
    TDateTime Now() override
    {
        SYSTEMTIME now;
        GetLocalTime(&now);
        const auto wholeSeconds =
            EncodeDateTime({now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond});
        return wholeSeconds.value_or(0) + now.wMilliseconds / (1000.0 * SecondsPerDay);
    }
};

} // namespace

std::unique_ptr<TClock> NewClock()
{
    return std::make_unique<TWindowsClock>();
}

} // namespace murala
