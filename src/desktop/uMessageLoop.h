// Letting the program's messages through while something is waited for.
#pragma once

#include <cstdint>
#include <memory>

namespace murala
{

class TMessageLoop
{
public:
    virtual ~TMessageLoop() = default;

    // A steady count.
    virtual std::int64_t Milliseconds() = 0;
    virtual void Sleep(int milliseconds) = 0;
    // Waits for a message when none is there, but not for long.
    virtual void HandleOneMessage() = 0;
    virtual void HandlePendingMessages() = 0;
};

std::unique_ptr<TMessageLoop> NewMessageLoop();

} // namespace murala
