#include "../uProcessorTime.h"

#include <windows.h>

// The C library's clock() goes on while nothing is done here.
double ProcessorTime()
{
    FILETIME start, end, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &start, &end, &kernel, &user);
    const auto units = [](const FILETIME& time) {
        return (static_cast<unsigned long long>(time.dwHighDateTime) << 32U) | time.dwLowDateTime;
    };
    return static_cast<double>(units(kernel) + units(user)) / 10000;
}
