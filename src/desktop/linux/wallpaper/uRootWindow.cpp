// For a session without a desktop program: the picture becomes the background of the X root window.
// The pixmap outlives this process. Two properties name it, so that other programs find it and the
// program that sets the next picture can free it.
#include "uBackground.h"
#include "uBitmap.h"
#include "uImageFile.h"
#include "uRootKeeper.h"
#include "uScreens.h"
#include "uWork.h"
#include "uX11.h"

#include <X11/Xatom.h>

#include <bit>
#include <exception>
#include <memory>
#include <vector>

namespace murala
{

namespace
{

constexpr const char* PixmapProperties[] = {RootPictureProperty, "ESETROOT_PMAP_ID",
                                            OurPictureProperty};

struct TImageDestroy {
    void operator()(XImage* image) const noexcept
    {
        image->data = nullptr; // belongs to the bitmap or to a vector
        XDestroyImage(image);
    }
};
using TImage = std::unique_ptr<XImage, TImageDestroy>;

// The bits of one channel of a pixel of the server.
unsigned long ChannelBits(unsigned value, unsigned long mask)
{
    if (mask == 0)
        return 0;
    const unsigned long largest = mask >> std::countr_zero(mask);
    return (value * largest / 255U) << std::countr_zero(mask);
}

unsigned long ServerPixel(const Visual* visual, TPixel pixel)
{
    return ChannelBits((pixel >> 16U) & 0xFFU, visual->red_mask) |
           ChannelBits((pixel >> 8U) & 0xFFU, visual->green_mask) |
           ChannelBits(pixel & 0xFFU, visual->blue_mask);
}

class TRootWindow
{
public:
    explicit TRootWindow(Display* display)
        : m_display(display), m_root(DefaultRootWindow(display)), m_screen(DefaultScreen(display)),
          m_visual(DefaultVisual(display, m_screen))
    {
    }

    bool HasPicture() const { return PictureOnRoot(m_display) != None; }
    // One of ours, made when the screen had another size.
    bool HasOutdatedPicture() const
    {
        const Pixmap picture = PictureOnRoot(m_display);
        Window root = None;
        int place = 0;
        unsigned width = 0, height = 0, ignored = 0;
        return picture != None && picture == Stored(OurPictureProperty) &&
               XGetGeometry(m_display, picture, &root, &place, &place, &width, &height, &ignored,
                            &ignored) != 0 &&
               (static_cast<int>(width) != DisplayWidth(m_display, m_screen) ||
                static_cast<int>(height) != DisplayHeight(m_display, m_screen));
    }

    void FillWithColor(TColor color)
    {
        XSetWindowBackground(m_display, m_root, ServerPixel(m_visual, ColorToPixel(color)));
        XClearWindow(m_display, m_root);
    }

    // A pixmap of the whole root window; outside of the picture it has the colour.
    Pixmap Paint(TBitmap& picture, TColor color)
    {
        const auto width = static_cast<unsigned>(DisplayWidth(m_display, m_screen));
        const auto height = static_cast<unsigned>(DisplayHeight(m_display, m_screen));
        const auto depth = static_cast<unsigned>(DefaultDepth(m_display, m_screen));
        const Pixmap pixmap = XCreatePixmap(m_display, m_root, width, height, depth);
        GC context = XCreateGC(m_display, pixmap, 0, nullptr);
        XSetForeground(m_display, context, ServerPixel(m_visual, ColorToPixel(color)));
        XFillRectangle(m_display, pixmap, context, 0, 0, width, height);
        std::vector<char> converted;
        const TImage image = MakeImage(picture, converted);
        if (image)
            XPutImage(m_display, pixmap, context, image.get(), 0, 0, 0, 0,
                      static_cast<unsigned>(picture.Width()),
                      static_cast<unsigned>(picture.Height()));
        XFreeGC(m_display, context);
        return pixmap;
    }

    void Show(Pixmap pixmap)
    {
        FreeBefore();
        for (const char* name : PixmapProperties)
            XChangeProperty(m_display, m_root, XInternAtom(m_display, name, False), XA_PIXMAP, 32,
                            PropModeReplace, reinterpret_cast<unsigned char*>(&pixmap), 1);
        XSetWindowBackgroundPixmap(m_display, m_root, pixmap);
        XClearWindow(m_display, m_root);
    }

private:
    Pixmap Stored(const char* property) const
    {
        return ReadProperty32(m_display, m_root, property, XA_PIXMAP);
    }

    // A pixmap that both properties name was left behind on purpose. Any other one belongs to a
    // running program, which XKillClient would end.
    void FreeBefore()
    {
        const Pixmap before = PictureOnRoot(m_display);
        if (before != None && before == Stored(PixmapProperties[1]))
            XKillClient(m_display, before);
    }

    // The image uses the bitmap's own pixels where the server's have the same form, else those of
    // `converted`.
    TImage MakeImage(TBitmap& bitmap, std::vector<char>& converted)
    {
        TImage image(XCreateImage(m_display, m_visual,
                                  static_cast<unsigned>(DefaultDepth(m_display, m_screen)), ZPixmap,
                                  0, nullptr, static_cast<unsigned>(bitmap.Width()),
                                  static_cast<unsigned>(bitmap.Height()), 32, 0));
        if (!image)
            return image;
        const bool sameForm = image->bits_per_pixel == 32 && m_visual->red_mask == 0xFF0000U &&
                              m_visual->green_mask == 0xFF00U && m_visual->blue_mask == 0xFFU;
        if (sameForm) {
            image->byte_order = std::endian::native == std::endian::little ? LSBFirst : MSBFirst;
            image->data = reinterpret_cast<char*>(bitmap.Row(0));
            return image;
        }
        converted.resize(static_cast<std::size_t>(image->bytes_per_line) *
                         static_cast<std::size_t>(bitmap.Height()));
        image->data = converted.data();
        for (int y = 0; y < bitmap.Height(); y++)
            for (int x = 0; x < bitmap.Width(); x++)
                XPutPixel(image.get(), x, y, ServerPixel(m_visual, bitmap.Row(y)[x]));
        return image;
    }

    Display* m_display;
    Window m_root;
    int m_screen;
    Visual* m_visual;
};

bool ShowOnRoot(TBitmap& picture, TColor color)
{
    const TDisplay display = OpenDisplay(); // its own, because it leaves the pixmap behind
    if (!display)
        return false;
    TXErrorGuard guard(display.get());
    TRootWindow root(display.get());
    const Pixmap pixmap = root.Paint(picture, color);
    if (guard.HasFailed())
        return false;
    root.Show(pixmap);
    XSetCloseDownMode(display.get(), RetainPermanent);
    return true;
}

// Loads and lays the picture out in a thread of its own: in this one the window would stand still.
void ShowOnRootLater(const std::string& path, TColor color, TOnTook onTook)
{
    const TScreens screens = ReadScreens();
    if (screens.Monitors.empty())
        return onTook(TTook::No, "");
    const auto picture = std::make_shared<TBitmap>();
    WorkAside(
        [=] {
            try {
                *picture = PictureOnMonitors(LoadImageFile(path), screens, color);
            } catch (const std::exception&) {
                // It stays empty.
            }
        },
        [=, onTook = std::move(onTook)] {
            const bool shown = picture->Width() > 0 && ShowOnRoot(*picture, color);
            onTook(shown ? TTook::Yes : TTook::No, "");
        });
}

class TRootWindowBackground : public TBackground
{
public:
    bool GoesByNames() const override { return false; }

    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    {
        if (IsBelowWayland())
            return onTook(TTook::No, "");
        if (!m_keeper)
            m_keeper = std::make_shared<TRootKeeper>([this] { m_showAgain(); });
        const auto show = [path, color, keeper = std::weak_ptr(m_keeper)](const TOnTook& onShown) {
            ShowOnRootLater(path, color, [=](TTook took, const std::string& advice) {
                if (const auto still = keeper.lock())
                    still->Keep();
                onShown(took, advice);
            });
        };
        m_showAgain = [show] { show([](TTook, const std::string&) {}); };
        show(onTook);
    }

    bool IsOutdated() override
    {
        const TSharedDisplay display = IsBelowWayland() ? nullptr : SharedDisplay();
        if (!display)
            return false;
        TXErrorGuard guard(display.get());
        return TRootWindow(display.get()).HasOutdatedPicture();
    }

    // Only where there is no picture, which would cover it.
    void SetColor(TColor color) override
    {
        const TSharedDisplay display = SharedDisplay();
        if (!display)
            return;
        TXErrorGuard guard(display.get());
        TRootWindow root(display.get());
        if (!root.HasPicture())
            root.FillWithColor(color);
    }

private:
    std::shared_ptr<TRootKeeper> m_keeper; // from the first picture on
    std::function<void()> m_showAgain;
};

} // namespace

std::unique_ptr<TBackground> NewRootWindowBackground()
{
    return std::make_unique<TRootWindowBackground>();
}

} // namespace murala
