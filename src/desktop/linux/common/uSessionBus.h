// Calls to the other programs of the user's session over D-Bus.
#pragma once

#include "uGLib.h"

#include <functional>

namespace murala
{

struct TBusObject {
    const char* Name;
    const char* Path;
    const char* Interface;
};

// Whether the session has a bus. Where it has none, GLib would start one at every call, with nobody
// on it.
bool HasSessionBus();

// The answer, a tuple; null when there is no bus, no such program, or it answers with an error.
// Takes over a floating `arguments` (a tuple or null). `answerType` is checked when it is given.
// The caller waits for so many milliseconds at the most.
TVariant CallSessionBus(const TBusObject& object, const char* method, GVariant* arguments,
                        const char* answerType = nullptr, int limitMs = 5000);

// The same without waiting: `onAnswer` runs out of the main loop, null where CallSessionBus gives
// null.
using TOnBusAnswer = std::function<void(GVariant* answer)>;
void CallSessionBusLater(const TBusObject& object, const char* method, GVariant* arguments,
                         const char* answerType, TOnBusAnswer onAnswer);

} // namespace murala
