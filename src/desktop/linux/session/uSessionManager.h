// The link to the session manager (XSMP), which tells a program to go before the session's screen
// does.
#pragma once

#include <functional>
#include <memory>

namespace murala
{

class TSessionManager
{
public:
    virtual ~TSessionManager() = default;
};

// `onDie` runs out of the main loop. Null when the session has no manager.
std::unique_ptr<TSessionManager> JoinSession(std::function<void()> onDie);

} // namespace murala
