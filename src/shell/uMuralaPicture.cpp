// The part of TMurala that works on the selected item: its settings and its preview.

#include "uMurala.h"

#include "uText.h"

#include <new>

namespace murala
{

void TMurala::ItemEdited()
{
    m_view.ItemChanged();
    m_view.PreviewChanged(false);
    SaveList();
}

void TMurala::SetDisplayMode(TDisplayMode mode)
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return;
    item->DisplayMode = mode;
    const TSize image = m_source.SizeOf(item->FileName());
    if (image.Width > 0)
        for (const std::string_view text : CheckDisplayMode(item->DisplayMode, image, ScreenSize()))
            m_view.ShowMessage(std::string(text));
    ItemEdited();
}

void TMurala::StepDisplayMode()
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return;
    const TSize image = m_source.SizeOf(item->FileName());
    item->DisplayMode =
        image.Width > 0
            ? NextDisplayMode(item->DisplayMode, image, ScreenSize())
            : static_cast<TDisplayMode>((item->DisplayMode + 1) % std::size(DisplayModeNames));
    ItemEdited();
}

void TMurala::SetGammaStyle(TGammaStyle style)
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr || item->GammaStyle == style)
        return;
    item->GammaStyle = style;
    if (style == gsNone) {
        item->SetStartTint({});
        item->SetEndTint({});
    }
    ItemEdited();
}

void TMurala::SetTint(TTintEnd end, TTintChannel channel, int value)
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return;
    TTint tint = end == TTintEnd::Start ? item->StartTint() : item->EndTint();
    const auto set = [=](TTintChannel which, int& field) {
        if (channel == which || channel == TTintChannel::All)
            field = value;
    };
    set(TTintChannel::Red, tint.Red);
    set(TTintChannel::Green, tint.Green);
    set(TTintChannel::Blue, tint.Blue);
    if (end == TTintEnd::Start)
        item->SetStartTint(tint);
    else
        item->SetEndTint(tint);
    m_view.PreviewChanged(false);
}

void TMurala::SetDesktopColor(TColor color)
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return;
    item->SetDesktopColor(color);
    if (IsCurrentSelected() && !Updating)
        ApplyItemColor(color);
    ItemEdited();
}

void TMurala::ToggleTransparentIcons()
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr || Updating)
        return;
    item->TransparentIcons = !item->TransparentIcons;
    m_view.ItemChanged();
    SaveList();
    if (IsCurrentSelected())
        ApplyLabels(*item);
}

void TMurala::SetEffect(const std::string& effect)
{
    TMuWallpaper* item = SelectedItem();
    if (item == nullptr || item->Effect == effect)
        return;
    item->Effect = effect;
    m_view.ItemChanged();
    SaveList();
}

std::string TMurala::LoadPreview()
{
    const TMuWallpaper* item = SelectedItem();
    if (item == nullptr)
        return {};
    for (bool retry = true;; retry = false) {
        try {
            m_source.Load(item->FileName());
            return {};
        } catch (const std::bad_alloc&) {
            if (!retry)
                return "Image is too big to preview.";
            m_view.SetStatus("Freeing thumbnails to make room for large image.");
            List.FreeAllThumbnails();
        } catch (const EInvalidImage& error) {
            return error.what();
        } catch (const std::runtime_error& error) {
            return FormatText("The image (%s) could not be previewed.\r\n%s",
                              {item->FileName(), error.what()});
        }
    }
}

TBitmap TMurala::PreviewPicture(int width)
{
    const TMuWallpaper* item = SelectedItem();
    if (item == nullptr || width < 1 || !m_source.Holds(item->FileName()))
        return {};
    const TSize screen = ScreenSize();
    TBitmap picture = ComposePicture(*m_source.Open(item->FileName()), *item, screen, {});
    ResizeBitmap(picture, width,
                 RoundHalfEven(static_cast<long double>(width) * screen.Height / screen.Width));
    return picture;
}

void TMurala::ReleasePreview()
{
    m_source.Release();
}

} // namespace murala
