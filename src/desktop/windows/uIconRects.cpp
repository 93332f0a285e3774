#include "uIconRects.h"

#include "uSendMessage.h"
#include "uWindowsHandles.h"

#include <commctrl.h>

namespace murala
{

namespace
{

constexpr ULONGLONG PatienceMs = 3000;

// A rectangle in the memory of the program that the window belongs to: an address in a message
// means that program's memory.
class TRemoteRect
{
public:
    explicit TRemoteRect(HWND window) : m_process(OpenProcessOf(window))
    {
        if (m_process)
            m_place = VirtualAllocEx(m_process.get(), nullptr, sizeof(RECT),
                                     MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    }
    TRemoteRect(const TRemoteRect&) = delete;
    TRemoteRect& operator=(const TRemoteRect&) = delete;
    ~TRemoteRect()
    {
        if (m_place != nullptr)
            VirtualFreeEx(m_process.get(), m_place, 0, MEM_RELEASE);
    }

    bool IsThere() const { return m_place != nullptr; }
    LPARAM Place() const { return reinterpret_cast<LPARAM>(m_place); }
    bool Write(const RECT& rect)
    {
        return WriteProcessMemory(m_process.get(), m_place, &rect, sizeof rect, nullptr) != FALSE;
    }
    bool Read(RECT& rect) const
    {
        return ReadProcessMemory(m_process.get(), m_place, &rect, sizeof rect, nullptr) != FALSE;
    }
    // A program that has not answered may still write there: then the memory is never freed.
    void Leave() { m_place = nullptr; }

private:
    static HANDLE OpenProcessOf(HWND window)
    {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        return OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE,
                           process);
    }

    THandle m_process;
    void* m_place = nullptr;
};

enum class TAnswer { Given, Refused, None };

// In coordinates of the screen. `part`: LVIR_ICON or LVIR_LABEL.
TAnswer AskForRect(HWND list, TRemoteRect& memory, int item, int part, RECT& rect)
{
    rect = {part, 0, 0, 0};
    if (!memory.Write(rect))
        return TAnswer::Refused;
    const auto answer =
        AskProgram(list, LVM_GETITEMRECT, static_cast<WPARAM>(item), memory.Place());
    if (!answer) {
        memory.Leave();
        return TAnswer::None;
    }
    if (*answer == FALSE || !memory.Read(rect))
        return TAnswer::Refused;
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return TAnswer::Given;
}

} // namespace

TIconRegion AskForIconRects(HWND list)
{
    const TIconRegion silent{{}, SilentDesktopText};
    const auto count = AskProgram(list, LVM_GETITEMCOUNT);
    if (!count)
        return silent;
    if (*count == 0 || IsWindowVisible(list) == FALSE)
        return {{}, "The desktop shows no icons."};
    TRemoteRect memory(list);
    if (!memory.IsThere())
        return {{}, "Windows does not let Murala ask where the icons are."};
    TIconRegion region;
    const ULONGLONG start = GetTickCount64();
    for (int item = 0; item < *count; ++item)
        for (const int part : {LVIR_ICON, LVIR_LABEL}) {
            RECT rect{};
            const TAnswer answer = AskForRect(list, memory, item, part, rect);
            if (answer == TAnswer::None || GetTickCount64() - start > PatienceMs)
                return silent;
            if (answer == TAnswer::Given) // else it has just been deleted
                region.Rects.push_back({static_cast<int>(rect.left), static_cast<int>(rect.top),
                                        static_cast<int>(rect.right),
                                        static_cast<int>(rect.bottom)});
        }
    return region;
}

} // namespace murala
