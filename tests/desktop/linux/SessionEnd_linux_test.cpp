#include "uSessionEnd.h"
#include "uTestSession.h"

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <poll.h>
#include <sys/wait.h>

using namespace murala;

namespace
{

TEST(SessionEnd, SignalsAreToldOnceOutOfTheMessageLoop)
{
    const TTestSession session;
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        const auto sessionEnd = NewSessionEnd();
        int ends = 0;
        sessionEnd->Listen(nullptr, [&] { ends++; });
        std::raise(signal);
        std::raise(signal);
        EXPECT_EQ(ends, 0);
        EXPECT_TRUE(Eventually([&] { return ends != 0; })) << signal;
        std::raise(signal);
        Eventually([] { return g_main_context_pending(nullptr) == FALSE; });
        EXPECT_EQ(ends, 1) << signal;
    }
}

// A session manager in a process of its own: whoever joins is asked to save himself; then he is
// told to go, or the manager vanishes.
class TTestManager
{
public:
    TTestManager(TTestSession& session, bool saysDie)
    {
        char error[256];
        static bool isInitialised = false;
        EXPECT_TRUE(isInitialised || SmsInitialize("test", "1", OnClient, nullptr, Accept,
                                                   sizeof error, error) != 0);
        isInitialised = true;
        IceListenObj* places = nullptr;
        int count = 0;
        EXPECT_NE(IceListenForConnections(&count, &places, sizeof error, error), 0) << error;
        for (int i = 0; i < count; i++)
            IceSetHostBasedAuthProc(places[i], Accept);
        char* names = IceComposeNetworkIdList(count, places);
        session.SetVariable("SESSION_MANAGER", names);
        says = saysDie;
        m_process = fork();
        if (m_process == 0)
            Serve(places, count);
        IceFreeListenObjs(count, places);
    }
    TTestManager(const TTestManager&) = delete;
    TTestManager& operator=(const TTestManager&) = delete;
    ~TTestManager()
    {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }

private:
    static Bool Accept(char* /*host*/) { return True; }

    [[noreturn]] static void Serve(IceListenObj* places, int count)
    {
        std::vector<pollfd> waiting;
        for (int i = 0; i < count; i++)
            waiting.push_back({IceGetListenConnectionNumber(places[i]), POLLIN, 0});
        poll(waiting.data(), waiting.size(), -1);
        const auto called =
            std::ranges::find_if(waiting, [](const pollfd& each) { return each.revents != 0; });
        IceAcceptStatus accepted = IceAcceptBadMalloc;
        const IceConn ice = IceAcceptConnection(places[called - waiting.begin()], &accepted);
        while (ice != nullptr && IceProcessMessages(ice, nullptr, nullptr) == 0) {
        }
        _exit(0);
    }

    static Status OnClient(SmsConn client, SmPointer, unsigned long* mask, SmsCallbacks* callbacks,
                           char** /*failure*/)
    {
        *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
                SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
                SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask |
                SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
        callbacks->register_client.callback = [](SmsConn each, SmPointer, char*) -> Status {
            SmsRegisterClientReply(each, SmsGenerateClientID(each));
            SmsSaveYourself(each, SmSaveLocal, False, SmInteractStyleNone, False);
            return 1;
        };
        callbacks->set_properties.callback = [](SmsConn, SmPointer, int, SmProp**) {};
        callbacks->save_yourself_done.callback = [](SmsConn each, SmPointer, Bool) {
            if (!says)
                _exit(0);
            SmsDie(each);
        };
        (void)client;
        return 1;
    }

    inline static bool says = false;
    pid_t m_process;
};

TEST(SessionEnd, ManagerSaysDieAndItsDeathIsNone)
{
    TTestSession session;
    for (const bool saysDie : {false, true}) {
        const TTestManager manager(session, saysDie);
        const auto sessionEnd = NewSessionEnd();
        int ends = 0;
        sessionEnd->Listen(nullptr, [&] { ends++; });
        if (saysDie)
            EXPECT_TRUE(Eventually([&] { return ends == 1; }));
        else
            for (int i = 0; i < 20; i++) {
                g_main_context_iteration(nullptr, FALSE);
                g_usleep(10000);
            }
        EXPECT_EQ(ends, saysDie ? 1 : 0);
    }
}

} // namespace
