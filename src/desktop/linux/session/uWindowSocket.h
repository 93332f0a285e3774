// A socket in the file system that stands for a window, by which programs find and tell each other
// on Linux (uSiblings.h describes the protocol). Where no socket can be made, nobody is found.
#pragma once

#include "uDescriptor.h"
#include "uWork.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace murala
{

bool WindowSocketExists(const std::filesystem::path& place);

// Sends one message. False when nobody listens.
bool PostToWindowSocket(const std::filesystem::path& place, const std::string& message);

// Sends one message and waits, half a second at the most, for the line that answers it.
std::optional<std::string> AskWindowSocket(const std::filesystem::path& place,
                                           const std::string& message);

// Listens as a window. The handler is given each message's line and runs out of the thread's main
// loop.
class TWindowSocket
{
public:
    using TOnMessage = std::function<void(const std::string&)>;

    // Takes the place of a socket that was left behind. Throws EFileError.
    TWindowSocket(const std::filesystem::path& place, TOnMessage onMessage);
    TWindowSocket(const TWindowSocket&) = delete;
    TWindowSocket& operator=(const TWindowSocket&) = delete;
    ~TWindowSocket();

private:
    void TakeMessage();

    std::filesystem::path m_place;
    TDescriptor m_listener;
    TOnMessage m_onMessage;
    TSource m_source;
};

} // namespace murala
