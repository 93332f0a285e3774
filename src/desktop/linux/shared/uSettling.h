// What comes as many events and is done once they have ended.
#pragma once

#include <functional>

namespace murala
{

class TSettling
{
public:
    // `onSettled` runs out of the main loop, a second after the last Begin.
    explicit TSettling(std::function<void()> onSettled) : m_onSettled(std::move(onSettled)) {}
    TSettling(const TSettling&) = delete;
    TSettling& operator=(const TSettling&) = delete;
    ~TSettling() { End(); }

    void Begin();

private:
    void End();

    std::function<void()> m_onSettled;
    unsigned m_source = 0;
};

} // namespace murala
