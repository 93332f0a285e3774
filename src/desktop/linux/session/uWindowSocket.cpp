#include "uWindowSocket.h"

#include "uPath.h"
#include "uSafeFile.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace murala
{

namespace
{

constexpr std::int64_t AnswerLimitUs = 500000;
constexpr std::int64_t MessageLimitUs =
    100000; // short, because a sender writes its message at once
constexpr std::size_t LongestMessage = 256;

// Names the socket by its open folder, because a socket's path must be short.
struct TAddress {
    explicit TAddress(const std::filesystem::path& place)
        : Folder(open(place.parent_path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC))
    {
        const std::string path =
            "/proc/self/fd/" + std::to_string(Folder.Get()) + '/' + place.filename().string();
        Name.sun_family = AF_UNIX;
        IsUsable = Folder && path.size() < sizeof Name.sun_path;
        if (IsUsable)
            std::memcpy(Name.sun_path, path.c_str(), path.size());
    }
    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&Name); }

    TDescriptor Folder;
    sockaddr_un Name{};
    bool IsUsable;
};

TDescriptor Connect(const std::filesystem::path& place)
{
    const TAddress address(place);
    // Without waiting, because the program may hang. EAGAIN says that it is there, with a full
    // queue.
    TDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket || !address.IsUsable ||
        (connect(socket.Get(), address.Get(), sizeof address.Name) != 0 && errno != EAGAIN))
        return TDescriptor();
    return socket;
}

bool SendLine(const TDescriptor& socket, const std::string& message)
{
    const std::string line = message + '\n';
    return send(socket.Get(), line.data(), line.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(line.size());
}

// Nothing when the other side is too slow, too wordy or gone.
std::optional<std::string> ReceiveLine(const TDescriptor& socket, std::int64_t limitUs)
{
    const std::int64_t end = g_get_monotonic_time() + limitUs;
    std::string line;
    while (line.size() < LongestMessage) {
        const auto leftMs = static_cast<int>((end - g_get_monotonic_time()) / 1000);
        pollfd waiting{socket.Get(), POLLIN, 0};
        char byte = 0;
        if (poll(&waiting, 1, std::max(leftMs, 0)) != 1 || recv(socket.Get(), &byte, 1, 0) != 1)
            return std::nullopt;
        if (byte == '\n')
            return line;
        line += byte;
    }
    return std::nullopt;
}

} // namespace

bool WindowSocketExists(const std::filesystem::path& place)
{
    return static_cast<bool>(Connect(place));
}

bool PostToWindowSocket(const std::filesystem::path& place, const std::string& message)
{
    const TDescriptor socket = Connect(place);
    if (socket)
        SendLine(socket, message);
    return static_cast<bool>(socket);
}

std::optional<std::string> AskWindowSocket(const std::filesystem::path& place,
                                           const std::string& message)
{
    const TDescriptor socket = Connect(place);
    if (!socket || !SendLine(socket, message))
        return std::nullopt;
    return ReceiveLine(socket, AnswerLimitUs);
}

TWindowSocket::TWindowSocket(const std::filesystem::path& place, TOnMessage onMessage)
    : m_place(place), m_onMessage(std::move(onMessage))
{
    const TAddress address(place);
    unlink(place.c_str()); // of a program that was killed
    m_listener = TDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!m_listener || !address.IsUsable ||
        bind(m_listener.Get(), address.Get(), sizeof address.Name) != 0 ||
        listen(m_listener.Get(), SOMAXCONN) != 0)
        throw EFileError("No socket could be made as " + PathText(place) + ": " +
                         std::generic_category().message(errno));
    m_source = RunOnData(m_listener.Get(), [this] {
        TakeMessage();
        return true;
    });
}

TWindowSocket::~TWindowSocket()
{
    unlink(m_place.c_str());
}

void TWindowSocket::TakeMessage()
{
    const TDescriptor connection(accept4(m_listener.Get(), nullptr, nullptr, SOCK_CLOEXEC));
    if (connection)
        if (const auto message = ReceiveLine(connection, MessageLimitUs))
            m_onMessage(*message);
}

} // namespace murala
