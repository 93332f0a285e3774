// Owners for what Win32 hands out.
#pragma once

#include "uBitmap.h"

#include <windows.h>

#include <memory>
#include <string>

namespace murala
{

template<class T, auto End>
struct THandleEnd {
    using pointer = T;
    void operator()(T handle) const noexcept { End(handle); }
};
template<class T, auto End>
using TOwned = std::unique_ptr<T, THandleEnd<T, End>>;

using TKey = TOwned<HKEY, RegCloseKey>;
using THandle = TOwned<HANDLE, CloseHandle>;
using TWindow = TOwned<HWND, DestroyWindow>;
using TIcon = TOwned<HICON, DestroyIcon>;
using TMemoryContext = TOwned<HDC, DeleteDC>;
template<class T>
using TGdiObject = TOwned<T, DeleteObject>;

// Opens an existing key; empty when it is not there or that access is refused.
inline TKey OpenKey(HKEY root, const std::string& path, REGSAM access)
{
    HKEY key = nullptr;
    return TKey(RegOpenKeyExA(root, path.c_str(), 0, access, &key) == ERROR_SUCCESS ? key
                                                                                    : nullptr);
}

// Selects an object into a context; the destructor selects the one before again.
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
