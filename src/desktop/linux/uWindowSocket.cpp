#include "uWindowSocket.h"

#include "uFolders.h"

#include <glib-unix.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cerrno>
#include <cstring>

namespace murala
{

namespace
{

constexpr int TimeLimitMs = 2000;
constexpr std::size_t LongestMessage = 256;

struct TAddress {
    explicit TAddress(const std::string& windowClass)
    {
        const std::string path = RuntimeFolder() / windowClass;
        if (path.size() >= sizeof Name.sun_path)
            throw std::filesystem::filesystem_error(
                "too long for a socket", path, std::make_error_code(std::errc::filename_too_long));
        Name.sun_family = AF_UNIX;
        std::memcpy(Name.sun_path, path.c_str(), path.size());
    }
    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&Name); }

    sockaddr_un Name{};
};

TDescriptor Connect(const std::string& windowClass)
try {
    const TAddress address(windowClass);
    // A program that hangs must not make this one wait; with its queue full it is there all the
    // same.
    TDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket ||
        (connect(socket.Get(), address.Get(), sizeof address.Name) != 0 && errno != EAGAIN))
        return TDescriptor();
    return socket;
} catch (const std::filesystem::filesystem_error&) {
    return TDescriptor();
}

bool SendLine(const TDescriptor& socket, const std::string& message)
{
    const std::string line = message + '\n';
    return send(socket.Get(), line.data(), line.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(line.size());
}

// Nothing when the other side is too slow, too wordy or gone.
std::optional<std::string> ReceiveLine(const TDescriptor& socket)
{
    std::string line;
    while (line.size() < LongestMessage) {
        pollfd waiting{socket.Get(), POLLIN, 0};
        char byte = 0;
        if (poll(&waiting, 1, TimeLimitMs) != 1 || recv(socket.Get(), &byte, 1, 0) != 1)
            return std::nullopt;
        if (byte == '\n')
            return line;
        line += byte;
    }
    return std::nullopt;
}

} // namespace

bool WindowSocketExists(const std::string& windowClass)
{
    return static_cast<bool>(Connect(windowClass));
}

bool PostToWindowSocket(const std::string& windowClass, const std::string& message)
{
    const TDescriptor socket = Connect(windowClass);
    if (socket)
        SendLine(socket, message);
    return static_cast<bool>(socket);
}

std::optional<std::string> AskWindowSocket(const std::string& windowClass,
                                           const std::string& message)
{
    const TDescriptor socket = Connect(windowClass);
    if (!socket || !SendLine(socket, message))
        return std::nullopt;
    return ReceiveLine(socket);
}

TWindowSocket::TWindowSocket(const std::string& windowClass, TOnMessage onMessage)
    : m_onMessage(std::move(onMessage))
{
    const TAddress address(windowClass);
    m_path = address.Name.sun_path;
    unlink(m_path.c_str()); // of a program that was killed
    m_listener = TDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!m_listener || bind(m_listener.Get(), address.Get(), sizeof address.Name) != 0 ||
        listen(m_listener.Get(), SOMAXCONN) != 0)
        throw std::filesystem::filesystem_error("cannot listen", m_path,
                                                std::error_code(errno, std::generic_category()));
    m_source = g_unix_fd_add(
        m_listener.Get(), G_IO_IN,
        [](gint descriptor, GIOCondition condition, gpointer self) {
            return OnConnection(descriptor, condition, self);
        },
        this);
}

TWindowSocket::~TWindowSocket()
{
    if (m_source != 0) {
        g_source_remove(m_source);
        unlink(m_path.c_str());
    }
}

int TWindowSocket::OnConnection(int descriptor, int /*condition*/, void* self)
{
    const TDescriptor connection(accept4(descriptor, nullptr, nullptr, SOCK_CLOEXEC));
    if (connection)
        if (const auto message = ReceiveLine(connection))
            static_cast<TWindowSocket*>(self)->m_onMessage(*message);
    return G_SOURCE_CONTINUE;
}

} // namespace murala
