#include "uFolders.h"
#include "uInstanceLink.h"
#include "uPath.h"
#include "uProgramFolder.h"
#include "uSafeFile.h"
#include "uWindowSocket.h"

#include <algorithm>
#include <vector>

namespace murala
{

namespace
{

constexpr const char* WakeLine = "WM_USER + 1";

// The folders that lock and socket lie in: those of the data that two copies must not both write -
// the queue, which is the user's, and the list, which may be a portable copy's. They do not depend
// on the session's variables, so that copies of two sessions find each other.
std::vector<std::filesystem::path> GuardFolders()
{
    std::vector<std::filesystem::path> folders{UserMuralaFolder()};
    std::error_code error;
    std::filesystem::create_directories(folders[0], error);
    const std::filesystem::path program = NativePath(ProgramFolder()).parent_path();
    if (program != folders[0])
        folders.push_back(program);
    return folders;
}

class TLinuxInstanceLink : public TInstanceLink
{
public:
    bool IsRunning() override
    {
        return std::ranges::any_of(Folders(), [](const auto& folder) {
            return WindowSocketExists(folder / MainWindowClass);
        });
    }

    bool PostWake() override
    {
        return std::ranges::any_of(Folders(), [](const auto& folder) {
            return PostToWindowSocket(folder / MainWindowClass, WakeLine);
        });
    }

    // Always in the same order, so that two starts do not wait for each other. A folder that cannot
    // be written to has no lock.
    void Lock() override
    {
        for (const auto& folder : Folders())
            m_locks.push_back(LockFile(PathText(folder / StartLockName)));
    }

    void Unlock() override { m_locks.clear(); }

    void Listen(void* /*mainWindow*/, std::function<void()> onWake) override
    {
        const auto onMessage = [onWake = std::move(onWake)](const std::string& message) {
            if (message == WakeLine)
                onWake();
        };
        for (const auto& folder : Folders())
            try {
                m_sockets.push_back(
                    std::make_unique<TWindowSocket>(folder / MainWindowClass, onMessage));
            } catch (const EFileError&) {
                // The program runs all the same; another copy just does not find it there.
            }
    }

private:
    // Not made before they are needed: "/UNINSTALL" must leave no folder behind.
    const std::vector<std::filesystem::path>& Folders()
    {
        if (m_folders.empty())
            m_folders = GuardFolders();
        return m_folders;
    }

    std::vector<std::filesystem::path> m_folders;
    std::vector<TDescriptor> m_locks;
    std::vector<std::unique_ptr<TWindowSocket>> m_sockets;
};

} // namespace

std::unique_ptr<TInstanceLink> NewInstanceLink()
{
    return std::make_unique<TLinuxInstanceLink>();
}

} // namespace murala
