// The picture of the selected wallpaper as it will look, from the selection to the window.
#pragma once

#include "uCore.h"
#include "uSourcePicture.h"

#include <memory>
#include <optional>
#include <string>

namespace murala
{

// It waits until the selection has settled, loads the picture in short steps, so that the window
// answers meanwhile, and shows it. While nobody sees the window it loads and holds nothing.
class TPreviewLoader : public TListener
{
public:
    explicit TPreviewLoader(TCore& core)
        : m_core(core), m_subscription(core.Listeners.Listen(*this))
    {
    }

    // TListener.
    void SelectionChanged() override;
    void ItemsChanged(const TItems&) override { ShowStatus(); }
    void PreviewChanged(bool loadPicture) override;

    // The time that TMainView::WakePreview was given has passed.
    void Tick();
    // Another program may have edited the picture.
    void LookAgain();
    // Nobody sees the window any more.
    void Clear();
    // Lets go of the picture and of its file.
    void Release() { m_source.Release(); }

    // The selected item as it will look, `width` pixels wide, in the screen's proportions. Empty
    // until its picture is loaded.
    TBitmap Picture(int width);
    // For composing: what is held is not read again; while the window is visible what is read now
    // is held for the preview. Throws EInvalidImage.
    std::unique_ptr<TImageReader> Open(const TMuWallpaper& item);
    // {0, 0} when the file cannot be read.
    TSize SizeOf(const TMuWallpaper& item) const { return m_source.SizeOf(item.FileName()); }

private:
    enum class TStep { Idle, Settling, Loading, Updating };

    void WaitFor(TStep step, int milliseconds);
    void Load();
    std::optional<std::string> LoadSome();
    bool IsOutOfDate() const;
    void ShowPicture();
    void ShowStatus();

    TCore& m_core;
    TStep m_next = TStep::Idle; // what the next tick is for
    TSourcePicture m_source;
    std::string m_secondTry; // the file that there was no memory for
    TSubscription m_subscription;
};

} // namespace murala
