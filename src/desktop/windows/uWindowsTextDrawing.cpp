#include "uTextDrawing.h"
#include "uWideText.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <system_error>
#include <type_traits>
#include <utility>

namespace murala
{

namespace
{

struct TContextDeleter {
    using pointer = HDC;
    void operator()(HDC context) const noexcept { DeleteDC(context); }
};
using TContext = std::unique_ptr<HDC, TContextDeleter>;

template<class THandle>
struct TGdiDeleter {
    using pointer = THandle;
    void operator()(THandle object) const noexcept { DeleteObject(object); }
};
template<class THandle>
using TGdiObject = std::unique_ptr<THandle, TGdiDeleter<THandle>>;

[[noreturn]] void Fail()
{
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                            "Cannot draw text");
}

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

// Fonts of the same measures, of which a machine without the first has one.
constexpr const wchar_t* Relatives[][3] = {
    {L"Arial", L"Liberation Sans", L"Arimo"},
    {L"Times New Roman", L"Liberation Serif", L"Tinos"},
    {L"Courier New", L"Liberation Mono", L"Cousine"},
    {L"Calibri", L"Carlito", nullptr},
    {L"Cambria", L"Caladea", nullptr},
};

bool HasFont(HDC context, const std::wstring& name)
{
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    bool isThere = false;
    EnumFontFamiliesExW(
        context, &wanted,
        [](const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
            *reinterpret_cast<bool*>(found) = true;
            return 0;
        },
        reinterpret_cast<LPARAM>(&isThere), 0);
    return isThere;
}

std::wstring PresentFont(HDC context, const std::wstring& name)
{
    for (const auto& family : Relatives) {
        if (lstrcmpiW(family[0], name.c_str()) != 0)
            continue;
        for (const wchar_t* relative : family)
            if (relative && HasFont(context, relative))
                return relative;
    }
    return name;
}

// A part of a bitmap as the system draws on it; the destructor gives the pixels back.
class TDrawingPart
{
public:
    TDrawingPart(HDC context, TBitmap& bitmap, const TRect& part) : m_bitmap(bitmap), m_part(part)
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = part.Width();
        info.bmiHeader.biHeight = -part.Height(); // from the top down
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pixels = nullptr;
        m_section.reset(CreateDIBSection(context, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
        if (!m_section)
            Fail();
        m_pixels = static_cast<TPixel*>(pixels);
        for (int y = 0; y < part.Height(); ++y)
            std::copy_n(BitmapRow(y), part.Width(), SectionRow(y));
    }
    TDrawingPart(const TDrawingPart&) = delete;
    TDrawingPart& operator=(const TDrawingPart&) = delete;
    ~TDrawingPart()
    {
        GdiFlush();
        for (int y = 0; y < m_part.Height(); ++y)
            std::copy_n(SectionRow(y), m_part.Width(), BitmapRow(y));
    }
    HBITMAP Section() const { return m_section.get(); }

private:
    TPixel* BitmapRow(int y) { return m_bitmap.Row(m_part.Top + y) + m_part.Left; }
    TPixel* SectionRow(int y) { return m_pixels + std::ptrdiff_t{y} * m_part.Width(); }

    TBitmap& m_bitmap;
    TRect m_part;
    TGdiObject<HBITMAP> m_section;
    TPixel* m_pixels = nullptr;
};

class TWindowsTextDrawing : public TTextDrawing
{
public:
    TWindowsTextDrawing() : m_context(CreateCompatibleDC(nullptr))
    {
        if (!m_context)
            Fail();
        SetBkMode(m_context.get(), TRANSPARENT);
    }

    TSize Measure(const TMuFont& font, const std::string& text) override
    {
        const TSelection selection(m_context.get(), Font(font));
        const std::wstring wide = WideText(text);
        SIZE size{};
        TEXTMETRICW metrics{};
        if (!GetTextExtentPoint32W(m_context.get(), wide.c_str(), static_cast<int>(wide.size()),
                                   &size) ||
            !GetTextMetricsW(m_context.get(), &metrics))
            Fail();
        return {static_cast<int>(wide.empty() ? 0 : size.cx), static_cast<int>(metrics.tmHeight)};
    }

    void Draw(TBitmap& bitmap, const TRect& clip, int x, int y, const TMuFont& font, TColor color,
              const std::string& text) override
    {
        // Letters may lean out of their line, and another font may help out with larger ones.
        const TSize size = Measure(font, text);
        const int margin = size.Height;
        const TRect part =
            VisiblePart({x - margin, y - margin, x + size.Width + margin, y + size.Height + margin},
                        clip, bitmap);
        if (part.Width() == 0)
            return;
        TDrawingPart target(m_context.get(), bitmap, part);
        const TSelection canvas(m_context.get(), target.Section());
        const TSelection selection(m_context.get(), Font(font));
        const std::wstring wide = WideText(text);
        SetTextColor(m_context.get(), color & 0xFFFFFFU);
        TextOutW(m_context.get(), x - part.Left, y - part.Top, wide.c_str(),
                 static_cast<int>(wide.size()));
    }

private:
    HFONT Font(const TMuFont& font)
    {
        if (m_font == font)
            return m_handle.get();
        LOGFONTW wanted{};
        wanted.lfHeight = -FontPixels(font.Size);
        wanted.lfWeight = font.Bold ? FW_BOLD : FW_NORMAL;
        wanted.lfItalic = font.Italic;
        wanted.lfUnderline = font.Underline;
        wanted.lfStrikeOut = font.Strikeout;
        wanted.lfCharSet = DEFAULT_CHARSET;
        wanted.lfQuality = ANTIALIASED_QUALITY; // coloured edges would suit one kind of screen
        PresentFont(m_context.get(), WideText(font.Name)).copy(wanted.lfFaceName, LF_FACESIZE - 1);
        m_handle.reset(CreateFontIndirectW(&wanted));
        if (!m_handle)
            Fail();
        m_font = font;
        return m_handle.get();
    }

    TContext m_context;
    TGdiObject<HFONT> m_handle;
    std::optional<TMuFont> m_font; // what the handle is for
};

} // namespace

std::unique_ptr<TTextDrawing> NewTextDrawing()
{
    return std::make_unique<TWindowsTextDrawing>();
}

} // namespace murala
