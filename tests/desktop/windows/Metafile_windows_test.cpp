#include "uImageFile.h"
#include "uMetafile.h"
#include "uTempFolder.h"
#include "uWideText.h"

#include <windows.h>

#include <gtest/gtest.h>

using namespace murala;

namespace
{

constexpr TPixel White = 0xFFFFFF, Red = 0xFF0000, Green = 0x00FF00;

// The upper left quarter red, the lower right one green, in a space of 200 x 100 units.
void DrawQuarters(HDC context)
{
    SetMapMode(context, MM_ANISOTROPIC);
    SetWindowOrgEx(context, 0, 0, nullptr);
    SetWindowExtEx(context, 200, 100, nullptr);
    SelectObject(context, GetStockObject(NULL_PEN));
    const struct {
        COLORREF Color;
        int Left, Top;
    } quarters[] = {{RGB(255, 0, 0), 0, 0}, {RGB(0, 255, 0), 100, 50}};
    for (const auto& each : quarters) {
        const HBRUSH brush = CreateSolidBrush(each.Color);
        const HGDIOBJ before = SelectObject(context, brush);
        Rectangle(context, each.Left, each.Top, each.Left + 101, each.Top + 51);
        SelectObject(context, before);
        DeleteObject(brush);
    }
}

void ExpectQuarters(const TBitmap& picture, TSize size)
{
    EXPECT_NEAR(picture.Width(), size.Width, 1);
    EXPECT_NEAR(picture.Height(), size.Height, 1);
    const auto at = [&](int x, int y) {
        return picture.Row(picture.Height() * y / 8)[picture.Width() * x / 8] & White;
    };
    EXPECT_EQ(at(1, 1), Red);
    EXPECT_EQ(at(3, 3), Red);
    EXPECT_EQ(at(5, 5), Green);
    EXPECT_EQ(at(7, 7), Green);
    EXPECT_EQ(at(6, 2), White);
    EXPECT_EQ(at(2, 6), White);
}

std::string OldMetafile()
{
    const HDC context = CreateMetaFileW(nullptr);
    DrawQuarters(context);
    const HMETAFILE file = CloseMetaFile(context);
    std::string bits(GetMetaFileBitsEx(file, 0, nullptr), '\0');
    GetMetaFileBitsEx(file, static_cast<UINT>(bits.size()), bits.data());
    DeleteMetaFile(file);
    return bits;
}

// 400 x 200 units, 144 of them an inch, in a header with its check sum.
std::string PlaceableHeader()
{
    WORD words[11] = {0xCDD7, 0x9AC6, 0, 0, 0, 400, 200, 144, 0, 0, 0};
    for (int i = 0; i < 10; i++)
        words[10] ^= words[i];
    return {reinterpret_cast<const char*>(words), sizeof words};
}

} // namespace

TEST(Metafile, BothKindsArePlayedInTheirOwnSizeOnWhite)
{
    const TTempFolder folder;
    const RECT frame{0, 0, 5080, 2540}; // two inches by one
    const std::string enhanced = folder.File("Öl.emf");
    const HDC context = CreateEnhMetaFileW(nullptr, WideText(enhanced).c_str(), &frame, nullptr);
    SetViewportExtEx(context, 1, 1, nullptr);
    SetMapMode(context, MM_ANISOTROPIC);
    SetViewportExtEx(
        context, GetDeviceCaps(context, HORZRES) * 5080 / 100 / GetDeviceCaps(context, HORZSIZE),
        GetDeviceCaps(context, VERTRES) * 2540 / 100 / GetDeviceCaps(context, VERTSIZE), nullptr);
    DrawQuarters(context);
    DeleteEnhMetaFile(CloseEnhMetaFile(context));
    ExpectQuarters(LoadMetafile(enhanced), {192, 96});

    const std::string old = OldMetafile();
    ASSERT_GT(old.size(), 40U);
    ExpectQuarters(LoadMetafile(folder.Write("placeable.wmf", PlaceableHeader() + old)),
                   {267, 133});
}

TEST(Metafile, WhatIsNoneIsRefused)
{
    const TTempFolder folder;
    const std::string whole = PlaceableHeader() + OldMetafile();
    for (const std::string& content : {std::string(), std::string("none"), whole.substr(0, 22),
                                       whole.substr(0, 30), std::string(100, '\xD7')})
        EXPECT_THROW(LoadMetafile(folder.Write("a.wmf", content)), EInvalidImage) << content.size();
    EXPECT_THROW(LoadMetafile(folder.File("missing.emf")), EInvalidImage);
}
