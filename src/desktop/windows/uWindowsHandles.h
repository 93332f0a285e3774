// Owners for what Win32 hands out.
#pragma once

#include "uBitmap.h"

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

struct TWindowDestroy {
    using pointer = HWND;
    void operator()(HWND window) const noexcept { DestroyWindow(window); }
};
using TWindow = std::unique_ptr<HWND, TWindowDestroy>;

struct TContextDeleter {
    using pointer = HDC;
    void operator()(HDC context) const noexcept { DeleteDC(context); }
};
using TMemoryContext = std::unique_ptr<HDC, TContextDeleter>;

template<class THandle>
struct TGdiDeleter {
    using pointer = THandle;
    void operator()(THandle object) const noexcept { DeleteObject(object); }
};
template<class THandle>
using TGdiObject = std::unique_ptr<THandle, TGdiDeleter<THandle>>;

// An object is in use in a context for a time.
class TSelection
{
public:
    TSelection(HDC context, HGDIOBJ object)
        : m_context(context), m_before(SelectObject(context, object))
    {
    }
    TSelection(const TSelection&) = delete;
    TSelection& operator=(const TSelection&) = delete;
    ~TSelection() { SelectObject(m_context, m_before); }

private:
    HDC m_context;
    HGDIOBJ m_before;
};

// A bitmap that the system draws on and whose pixels, row by row from the top, can be reached;
// empty when there is no memory for it.
inline TGdiObject<HBITMAP> NewPixels(const TSize& size, TPixel*& pixels)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.Width;
    info.bmiHeader.biHeight = -size.Height; // from the top down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* memory = nullptr;
    TGdiObject<HBITMAP> bitmap(
        CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &memory, nullptr, 0));
    pixels = static_cast<TPixel*>(memory);
    return bitmap;
}

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
