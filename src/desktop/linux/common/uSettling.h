// For changes that come as many events: the work is done once they have ended.
#pragma once

#include "uWork.h"

namespace murala
{

class TSettling
{
public:
    // `onSettled` runs out of the main loop, a second after the last Begin.
    explicit TSettling(std::function<void()> onSettled) : m_onSettled(std::move(onSettled)) {}

    void Begin() { m_source = RunAfter(1000, m_onSettled); }

private:
    std::function<void()> m_onSettled;
    TSource m_source;
};

} // namespace murala
