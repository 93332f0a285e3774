// Owners for what Win32 hands out.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

namespace murala
{

struct TKeyCloser {
    using pointer = HKEY;
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using TKey = std::unique_ptr<HKEY, TKeyCloser>;

// An existing key; empty when it cannot be opened so.
inline TKey OpenKey(HKEY root, const std::string& path, REGSAM access)
{
    HKEY key = nullptr;
    return TKey(RegOpenKeyExA(root, path.c_str(), 0, access, &key) == ERROR_SUCCESS ? key
                                                                                    : nullptr);
}

struct THandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using THandle = std::unique_ptr<HANDLE, THandleCloser>;

// The device context of the whole screen.
class TScreenContext
{
public:
    TScreenContext() : m_context(GetDC(nullptr)) {}
    TScreenContext(const TScreenContext&) = delete;
    TScreenContext& operator=(const TScreenContext&) = delete;
    ~TScreenContext() { ReleaseDC(nullptr, m_context); }
    HDC Get() const { return m_context; }

private:
    HDC m_context;
};

} // namespace murala
