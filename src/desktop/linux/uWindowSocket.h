// What stands for a window with a class name between programs on Linux (the protocol is described
// in uSiblings.h).
#pragma once

#include "uDescriptor.h"

#include <functional>
#include <optional>
#include <string>

namespace murala
{

bool WindowSocketExists(const std::string& windowClass);

// Sends one message. False when there is no such window.
bool PostToWindowSocket(const std::string& windowClass, const std::string& message);

// Sends one message and waits, not for long, for the line that answers it.
std::optional<std::string> AskWindowSocket(const std::string& windowClass,
                                           const std::string& message);

// Listens as the window of a class. The handler is given each message's line and runs out of the
// thread's main loop.
class TWindowSocket
{
public:
    using TOnMessage = std::function<void(const std::string&)>;

    TWindowSocket(const std::string& windowClass, TOnMessage onMessage);
    TWindowSocket(const TWindowSocket&) = delete;
    TWindowSocket& operator=(const TWindowSocket&) = delete;
    ~TWindowSocket();

private:
    static int OnConnection(int descriptor, int condition, void* self);

    std::string m_path;
    TDescriptor m_listener;
    TOnMessage m_onMessage;
    unsigned m_source = 0;
};

} // namespace murala
