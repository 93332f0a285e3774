#include "uFolders.h"
#include "uInstanceLink.h"
#include "uWindowSocket.h"

namespace murala
{

namespace
{

constexpr const char* WakeLine = "WM_USER + 1";

class TLinuxInstanceLink : public TInstanceLink
{
public:
    bool IsRunning() override { return WindowSocketExists(MainWindowClass); }
    bool PostWake() override { return PostToWindowSocket(MainWindowClass, WakeLine); }

    void Lock() override
    try {
        m_lock = LockFile(RuntimeFolder() / StartLockName);
    } catch (const std::filesystem::filesystem_error&) {
        // Without a folder there is no lock and no other copy to be found.
    }

    void Unlock() override { m_lock = TDescriptor(); }

    void Listen(void* /*mainWindow*/, std::function<void()> onWake) override
    try {
        m_socket = std::make_unique<TWindowSocket>(
            MainWindowClass, [onWake = std::move(onWake)](const std::string& message) {
                if (message == WakeLine)
                    onWake();
            });
    } catch (const std::filesystem::filesystem_error&) {
        // The program runs all the same; another copy just does not find it.
    }

private:
    TDescriptor m_lock;
    std::unique_ptr<TWindowSocket> m_socket;
};

} // namespace

std::unique_ptr<TInstanceLink> NewInstanceLink()
{
    return std::make_unique<TLinuxInstanceLink>();
}

} // namespace murala
