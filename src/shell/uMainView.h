// What the program asks of its one window. (What many are told is in uListeners.h.)
#pragma once

#include "uBitmap.h"
#include "uSettings.h"

#include <memory>
#include <string>

namespace murala
{

class TLongWork
{
public:
    virtual ~TLongWork() = default; // its end closes the progress window
    // To be called before each step: `position` steps are done, `text` says what comes next.
    // Returns false when the user, or the end of the session, wants the work to end here.
    virtual bool Step(int position, const std::string& text) = 0;
    // All steps are done; shows at once what still has to be done.
    virtual void Finish(const std::string& text) = 0;
};

class TMainView
{
public:
    virtual ~TMainView() = default;

    // Shows a message box and waits for the user. Messages are let through meanwhile.
    virtual void ShowMessage(const std::string& text) = 0;
    virtual void SetStatus(const std::string& text) = 0;
    // Shows the progress of long work with so many steps, as long as the result lives. Messages are
    // let through meanwhile, so the caller holds a pause.
    virtual std::unique_ptr<TLongWork> BeginWork(int range) = 0;
    // The hourglass. Calls may be nested.
    virtual void SetBusy(bool busy) = 0;
    // Takes the window's input away, and gives it back with the focus where it was. Calls may be
    // nested.
    virtual void EnableWindow(bool enable) = 0;

    // Whether the user sees the window or, during the start, will see it.
    virtual bool IsWindowVisible() = 0;
    virtual void MinimiseWindow() = 0;
    virtual TPlacement NormalPlacement() = 0;

    // The preview. A picture of `proportions` fills its room at so many device pixels.
    virtual int PreviewWidth(TSize proportions) = 0;
    virtual void ShowPreview(const TBitmap& picture) = 0;
    virtual void ShowPreviewText(const std::string& text) = 0;
    // Calls TPreviewLoader::Tick once, after so many milliseconds; an earlier wish is forgotten.
    virtual void WakePreview(int milliseconds) = 0;
};

} // namespace murala
