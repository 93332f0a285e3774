// The desktop itself: what wallpaper it shows, on how large a screen, in which colours.
#pragma once

#include "uColor.h"
#include "uGeometry.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace murala
{

// Screens that show the same picture, which is made in this size.
struct TScreenGroup {
    std::string Name; // is part of the picture's file name; empty: all screens
    TSize Size;
};
struct TScreenPicture {
    TScreenGroup Screens;
    std::string Path; // of a BMP file, in full
};
using TScreenPictures = std::vector<TScreenPicture>;

// Whether the desktop took the wallpaper. If not, what the user can do about it may be said.
struct TInstalled {
    bool Took;
    std::string Advice;
};
using TOnInstalled = std::function<void(const TInstalled& installed)>;

class TDesktop
{
public:
    virtual ~TDesktop() = default;

    // The primary screen in pixels.
    virtual TSize ScreenSize() = 0;
    // What the desktop is given pictures for. In both homes one picture, made for the primary
    // screen, is shown on all.
    virtual std::vector<TScreenGroup> Screens() { return {{"", ScreenSize()}}; }
    // Colours of more than 256 kinds; otherwise pictures are written with 8 bits a pixel.
    virtual int ScreenBitsPerPixel() = 0;

    // From now on `onChange` is told out of the message loop, a second after monitors were plugged
    // in or out, moved, turned or given another resolution; nothing ends that. At once where that
    // was while Murala did not run.
    virtual void ListenToScreens(std::function<void()> onChange) = 0;

    // Before a picture is composed. Mode 0: the desktop is to tile it, mode 1: not to; any other
    // mode changes nothing.
    virtual void WriteTileWallpaper(int mode) = 0;

    // Makes the pictures, one for each of Screens, the wallpaper and `color` what shows around and
    // behind them. It does not wait for a desktop that is slow or has not started yet: that goes
    // on in the background, for a minute at the most.
    // `onInstalled` is called once, in this thread: before Install returns where the answer is
    // known by then, otherwise later out of the message loop. A further Install takes the place of
    // one that is not done, which then tells nothing any more.
    virtual void Install(const TScreenPictures& pictures, TColor color,
                         TOnInstalled onInstalled) = 0;

    // Stores the colour's text, then sets the colour, at once.
    virtual void ApplyDesktopColor(TColor color) = 0;
    virtual TColor DesktopColor() = 0;
};

// Defined once per home. `programFolder` (with its trailing divider) is where a home without a
// registry keeps its own store.
std::unique_ptr<TDesktop> NewDesktop(const std::string& programFolder);

} // namespace murala
