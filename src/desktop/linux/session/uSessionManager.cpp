#include "uSessionManager.h"

#include "uProgramFolder.h"
#include "uWork.h"

#include <X11/SM/SMlib.h>

#include <cstdlib>
#include <string>
#include <unistd.h>
#include <utility>

namespace murala
{

namespace
{

// One property of a session's client, a list of texts or one byte.
void SetProperty(SmcConn connection, const char* name, const char* type, std::string text)
{
    SmPropValue value{static_cast<int>(text.size()), text.data()};
    SmProp property{const_cast<char*>(name), const_cast<char*>(type), 1, &value};
    SmProp* properties[] = {&property};
    SmcSetProperties(connection, 1, properties);
}

// Sets the properties that the protocol demands. The manager is not to start the program with the
// next session: the user decides that in the settings.
void Introduce(SmcConn connection)
{
    for (const char* name : {SmProgram, SmCloneCommand, SmRestartCommand})
        SetProperty(connection, name, name == std::string(SmProgram) ? SmARRAY8 : SmLISTofARRAY8,
                    ProgramFile());
    SetProperty(connection, SmUserID, SmARRAY8, std::to_string(getuid()));
    SetProperty(connection, SmRestartStyleHint, SmCARD8, std::string(1, SmRestartNever));
}

class TXsmpLink : public TSessionManager
{
public:
    explicit TXsmpLink(std::function<void()> onDie) : m_onDie(std::move(onDie))
    {
        // The library's own handler ends the process.
        IceSetIOErrorHandler([](IceConn) {});
        SmcCallbacks callbacks{};
        callbacks.save_yourself = {OnSaveYourself, this};
        callbacks.die = {OnDie, this};
        callbacks.save_complete = {[](SmcConn, SmPointer) {}, this};
        callbacks.shutdown_cancelled = {[](SmcConn, SmPointer) {}, this};
        constexpr unsigned long all = SmcSaveYourselfProcMask | SmcDieProcMask |
                                      SmcSaveCompleteProcMask | SmcShutdownCancelledProcMask;
        char* id = nullptr;
        char error[256];
        m_connection = SmcOpenConnection(nullptr, nullptr, SmProtoMajor, SmProtoMinor, all,
                                         &callbacks, nullptr, &id, sizeof error, error);
        std::free(id);
        if (m_connection == nullptr)
            return;
        Introduce(m_connection);
        const int descriptor = IceConnectionNumber(SmcGetIceConnection(m_connection));
        m_source = RunOnData(descriptor, [this] { return TakeMessages(); });
    }
    TXsmpLink(const TXsmpLink&) = delete;
    TXsmpLink& operator=(const TXsmpLink&) = delete;
    ~TXsmpLink() override
    {
        if (m_connection != nullptr)
            SmcCloseConnection(m_connection, 0, nullptr);
    }

    bool IsJoined() const { return m_connection != nullptr; }

private:
    // Nothing to do: changes are saved when they are made, and the rest when the session ends.
    static void OnSaveYourself(SmcConn connection, SmPointer, int, Bool, int, Bool)
    {
        SmcSaveYourselfDone(connection, True);
    }

    static void OnDie(SmcConn, SmPointer self) { static_cast<TXsmpLink*>(self)->m_onDie(); }

    bool TakeMessages()
    {
        auto* ice = SmcGetIceConnection(m_connection);
        if (IceProcessMessages(ice, nullptr, nullptr) == IceProcessMessagesSuccess)
            return true;
        // The manager is gone. Without the negotiation the library frees the connection at once.
        IceSetShutdownNegotiation(ice, False);
        SmcCloseConnection(std::exchange(m_connection, nullptr), 0, nullptr);
        return false;
    }

    std::function<void()> m_onDie;
    SmcConn m_connection = nullptr;
    TSource m_source;
};

} // namespace

std::unique_ptr<TSessionManager> JoinSession(std::function<void()> onDie)
{
    if (std::getenv("SESSION_MANAGER") == nullptr)
        return nullptr;
    auto link = std::make_unique<TXsmpLink>(std::move(onDie));
    return link->IsJoined() ? std::move(link) : nullptr;
}

} // namespace murala
