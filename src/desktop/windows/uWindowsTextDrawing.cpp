#include "uTextDrawing.h"
#include "uWideText.h"
#include "uWindowsHandles.h"

#include <algorithm>
#include <optional>
#include <system_error>

namespace murala
{

namespace
{

[[noreturn]] void Fail()
{
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                            "Cannot draw text");
}

// Fonts with the same measures as the first one, for a machine that does not have that.
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

// A copy of a part of a bitmap, for the system to draw on; the destructor copies the pixels back.
class TDrawingPart
{
public:
    TDrawingPart(TBitmap& bitmap, const TRect& part) : m_bitmap(bitmap), m_part(part)
    {
        m_section = NewPixels({part.Width(), part.Height()}, m_pixels);
        if (!m_section)
            Fail();
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
    TPixel* m_pixels = nullptr;
    TGdiObject<HBITMAP> m_section;
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
        const TRect part = TextPart(*this, font, text, x, y, clip, bitmap);
        if (part.Width() == 0)
            return;
        TDrawingPart target(bitmap, part);
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
        wanted.lfQuality =
            ANTIALIASED_QUALITY; // ClearType's coloured edges suit one kind of screen only
        PresentFont(m_context.get(), WideText(font.Name)).copy(wanted.lfFaceName, LF_FACESIZE - 1);
        m_handle.reset(CreateFontIndirectW(&wanted));
        if (!m_handle)
            Fail();
        m_font = font;
        return m_handle.get();
    }

    TMemoryContext m_context;
    TGdiObject<HFONT> m_handle;
    std::optional<TMuFont> m_font; // the font that the handle is of
};

} // namespace

std::unique_ptr<TTextDrawing> NewTextDrawing()
{
    return std::make_unique<TWindowsTextDrawing>();
}

} // namespace murala
