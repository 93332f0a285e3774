// Keeps our picture on the X root window. Some window managers paint their own when they start,
// which at log-in may be after us. A picture that the user puts there later stays.
#pragma once

#include "uWork.h"
#include "uX11.h"

#include <functional>

namespace murala
{

// Where the picture's pixmap is named for all programs to find.
inline constexpr const char* RootPictureProperty = "_XROOTPMAP_ID";
// Tells a later start which picture is ours.
inline constexpr const char* OurPictureProperty = "_MURALA_PMAP_ID";
// None: there is no picture.
Pixmap PictureOnRoot(Display* display);

class TRootKeeper
{
public:
    // `onLost` runs out of the main loop when there is another picture than the one that was kept.
    explicit TRootKeeper(std::function<void()> onLost);
    TRootKeeper(const TRootKeeper&) = delete;
    TRootKeeper& operator=(const TRootKeeper&) = delete;

    // Our picture, which has just been shown.
    void Keep();

private:
    void Begin();
    void TakeEvents();
    bool Look();
    void ShowKept();

    std::function<void()> m_onLost;
    TDisplay m_display; // its own, whose events nobody else reads
    Pixmap m_kept = None;
    bool m_isLost = false; // another one was named since
    int m_looksLeft = 0, m_lossesLeft = 0;
    TSource m_events, m_looking;
};

} // namespace murala
