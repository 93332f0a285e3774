// sway, over its own socket: a message is "i3-ipc", the payload's length, the message's type, and
// the payload, which is JSON where sway answers; numbers are 32 bits in the machine's order. sway
// forgets the picture when its configuration is reloaded: it is then set again.
#include "uBackground.h"
#include "uDescriptor.h"
#include "uWork.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sys/socket.h>
#include <sys/un.h>

namespace murala
{

namespace
{

constexpr std::string_view Magic = "i3-ipc";
constexpr std::size_t HeaderSize = 6 + 2 * sizeof(std::uint32_t);
constexpr std::uint32_t RunCommandType = 0;
constexpr std::uint32_t SubscribeType = 2;
constexpr std::uint32_t WorkspaceEvent = 0x80000000U;
constexpr std::size_t LongestMessage = 1U << 20U;

// The place behind the quotation mark that ends the text at the beginning of `json`.
std::size_t EndOfText(std::string_view json)
{
    std::size_t end = 1;
    while (end < json.size() && json[end] != '"')
        end += json[end] == '\\' ? 2 : 1;
    return end + 1;
}

// Takes the first token off: a text with its quotation marks, a bracket, comma or colon, or a word.
// Empty at the end.
std::string_view TakeToken(std::string_view& json)
{
    constexpr std::string_view blanks = " \t\r\n", marks = "{}[]:,";
    json.remove_prefix(std::min(json.find_first_not_of(blanks), json.size()));
    std::size_t end = 1;
    if (json.starts_with('"'))
        end = EndOfText(json);
    else if (!json.empty() && marks.find(json[0]) == std::string_view::npos)
        end = json.find_first_of(" \t\r\n{}[]:,");
    const std::string_view token = json.substr(0, end);
    json.remove_prefix(token.size());
    return token;
}

// Whether the JSON text has this member in an object that lies in `depth` brackets, its own
// included.
bool HasMember(std::string_view json, int depth, std::string_view name, std::string_view value)
{
    std::string_view beforeLast, last;
    for (auto token = TakeToken(json); !token.empty(); token = TakeToken(json)) {
        if (depth == 0 && beforeLast == name && last == ":" && token == value)
            return true;
        if (token == "{" || token == "[")
            depth--;
        else if (token == "}" || token == "]")
            depth++;
        beforeLast = std::exchange(last, token);
    }
    return false;
}

// A connection that is written to and read from without waiting.
class TSwaySocket
{
public:
    using TOnMessage = std::function<void(std::uint32_t type, std::string_view payload)>;

    explicit TSwaySocket(TOnMessage onMessage) : m_onMessage(std::move(onMessage))
    {
        const char* path = std::getenv("SWAYSOCK");
        sockaddr_un address{AF_UNIX, {}};
        if (path == nullptr || std::strlen(path) >= sizeof address.sun_path)
            return;
        std::memcpy(address.sun_path, path, std::strlen(path));
        m_socket = TDescriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        if (m_socket && connect(m_socket.Get(), reinterpret_cast<const sockaddr*>(&address),
                                sizeof address) == 0)
            m_source = RunOnData(m_socket.Get(), [this] { return TakeData(); });
        else
            m_socket = TDescriptor();
    }
    TSwaySocket(const TSwaySocket&) = delete;
    TSwaySocket& operator=(const TSwaySocket&) = delete;

    bool Send(std::uint32_t type, const std::string& payload)
    {
        std::string message(Magic);
        for (const std::uint32_t number : {static_cast<std::uint32_t>(payload.size()), type})
            message.append(reinterpret_cast<const char*>(&number), sizeof number);
        message += payload;
        return m_socket && send(m_socket.Get(), message.data(), message.size(), MSG_NOSIGNAL) ==
                               static_cast<ssize_t>(message.size());
    }

private:
    bool TakeData()
    {
        char bytes[4096];
        const ssize_t count = recv(m_socket.Get(), bytes, sizeof bytes, 0);
        if (count == 0 || (count < 0 && errno != EAGAIN)) {
            m_socket = TDescriptor();
            return false;
        }
        m_received.append(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        TakeMessages();
        return true;
    }

    void TakeMessages()
    {
        while (m_received.size() >= HeaderSize) {
            std::uint32_t size = 0;
            std::uint32_t type = 0;
            std::memcpy(&size, m_received.data() + Magic.size(), sizeof size);
            std::memcpy(&type, m_received.data() + Magic.size() + sizeof size, sizeof type);
            if (size > LongestMessage)
                return m_received.clear();
            if (m_received.size() < HeaderSize + size)
                return;
            const std::string payload = m_received.substr(HeaderSize, size);
            m_received.erase(0, HeaderSize + size);
            m_onMessage(type, payload);
        }
    }

    TOnMessage m_onMessage;
    TDescriptor m_socket;
    std::string m_received;
    TSource m_source;
};

// sway expands a file name as a shell would. A name with anything but plain characters is therefore
// given as a link with a plain one. The link need not outlive the session.
std::string PlainName(const std::string& path)
{
    constexpr const char* plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-~";
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    if (path.find_first_not_of(plain) == std::string::npos || folder == nullptr)
        return path;
    const std::filesystem::path link = std::filesystem::path(folder) / "murala-wallpaper.bmp";
    std::error_code error;
    std::filesystem::remove(link, error);
    std::filesystem::create_symlink(path, link, error);
    return error ? path : link.string();
}

class TSwayBackground : public TBackground
{
public:
    bool GoesByNames() const override { return false; }

    // The colour goes with the picture, which hides it.
    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    {
        m_command = "output * bg " + PlainName(path) + " fill " + ColorToHexText(color);
        m_onTook = std::move(onTook);
        Connect();
        if (!m_socket->Send(RunCommandType, m_command)) {
            m_socket.reset();
            Answer(TTook::NotYet);
        }
    }

private:
    void Connect()
    {
        if (m_socket)
            return;
        m_socket = std::make_unique<TSwaySocket>(
            [this](std::uint32_t type, std::string_view payload) { OnMessage(type, payload); });
        m_socket->Send(SubscribeType, R"(["workspace"])");
    }

    void OnMessage(std::uint32_t type, std::string_view payload)
    {
        // One answer for each command, in an array.
        if (type == RunCommandType)
            Answer(HasMember(payload, 2, R"("success")", "true") ? TTook::Yes : TTook::No);
        else if (type == WorkspaceEvent && HasMember(payload, 1, R"("change")", R"("reload")"))
            m_socket->Send(RunCommandType, m_command);
    }

    void Answer(TTook took)
    {
        if (const auto onTook = std::exchange(m_onTook, nullptr))
            onTook(took, "");
    }

    std::string m_command;
    TOnTook m_onTook;
    std::unique_ptr<TSwaySocket> m_socket;
};

} // namespace

std::unique_ptr<TBackground> NewSwayBackground()
{
    return std::make_unique<TSwayBackground>();
}

} // namespace murala
