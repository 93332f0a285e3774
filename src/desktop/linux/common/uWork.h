// Work for the main loop and for other threads. What it throws is told on stderr.
#pragma once

#include <glib.h>

#include <functional>
#include <memory>

namespace murala
{

// The main loop calls the work for as long as its owner holds this.
struct TSourceEnd {
    void operator()(GSource* source) const noexcept;
};
using TSource = std::unique_ptr<GSource, TSourceEnd>;

// Work that is called again and again, until it returns false.
using TRepeatedWork = std::function<bool()>;
TSource RunEvery(unsigned milliseconds, TRepeatedWork work);
// When there is something to read, or the other side is gone.
TSource RunOnData(int descriptor, TRepeatedWork work);
TSource RunOnSignal(int signal, TRepeatedWork work);

// Once, after so many milliseconds.
[[nodiscard]] TSource RunAfter(unsigned milliseconds, std::function<void()> action);
// The same with nobody who could end it.
void RunLater(unsigned milliseconds, std::function<void()> action);

// `work` runs in a thread of its own, and touches nothing that others do; then, whatever it has
// thrown, `onDone` in this one, out of the main loop.
void WorkAside(std::function<void()> work, std::function<void()> onDone);

} // namespace murala
