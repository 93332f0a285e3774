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
    virtual ~TLongWork() = default; // the work has ended
    // `position` steps are done; `text` says what comes next. False: it is to end here, as the
    // user or the end of the session wants.
    virtual bool Step(int position, const std::string& text) = 0;
    // All steps are done; `text`, shown at once, says what still is to come.
    virtual void Finish(const std::string& text) = 0;
};

class TMainView
{
public:
    virtual ~TMainView() = default;

    // A message box, waiting for the user. Messages are let through meanwhile.
    virtual void ShowMessage(const std::string& text) = 0;
    virtual void SetStatus(const std::string& text) = 0;
    // Long work of so many steps: shows how far it is while it lasts. Messages are let through
    // meanwhile, so the caller holds a pause.
    virtual std::unique_ptr<TLongWork> BeginWork(int range) = 0;
    // The hourglass, nested.
    virtual void SetBusy(bool busy) = 0;
    // Takes the window's input away and gives it back, nested, with the focus where it was.
    virtual void EnableWindow(bool enable) = 0;

    // Whether the user sees the window, or is about to, at the start.
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
