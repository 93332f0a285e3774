#pragma once

#include <functional>

namespace murala
{

// `work` runs in a thread of its own, and touches nothing that others do; then, whatever it has
// thrown, `onDone` in this one, out of the main loop.
void WorkAside(std::function<void()> work, std::function<void()> onDone);

// Once, after so many milliseconds, out of the main loop.
void RunLater(unsigned milliseconds, std::function<void()> action);

} // namespace murala
