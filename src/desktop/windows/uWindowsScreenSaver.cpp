#include "uScreenSaver.h"

#include <windows.h>

#include <algorithm>

namespace murala
{

namespace
{

constexpr const char* WindowClasses[] = {"WindowsScreenSaverClass", "Drempels"};

class TWindowsScreenSaver : public TScreenSaver
{
public:
    bool IsRunning() override
    {
        return std::ranges::any_of(
            WindowClasses, [](const char* name) { return FindWindowA(name, nullptr) != nullptr; });
    }
};

} // namespace

std::unique_ptr<TScreenSaver> NewScreenSaver()
{
    return std::make_unique<TWindowsScreenSaver>();
}

} // namespace murala
