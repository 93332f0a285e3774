// The picture of the selected wallpaper as it will look.
#pragma once

#include "uCore.h"
#include "uSourcePicture.h"

#include <memory>
#include <optional>
#include <string>

namespace murala
{

class TPreview
{
public:
    explicit TPreview(TCore& core) : m_core(core) {}

    // A short step of loading the selected item's picture. Nothing while more are needed; at the
    // end an empty text when that worked, else what to show instead. While the window is hidden
    // nothing is loaded.
    std::optional<std::string> LoadSome();
    // The selected item as it will look, `width` pixels wide, in the screen's proportions. Empty
    // while there is nothing to show.
    TBitmap Picture(int width);
    // Whether the file of the selected item was written since it was loaded.
    bool IsOutOfDate() const;
    void Release() { m_source.Release(); }

    // For composing: what is held is not read again; while the window is visible what is read now
    // is held for the preview. Throws EInvalidImage.
    std::unique_ptr<TImageReader> Open(const TMuWallpaper& item);
    // {0, 0} when the file cannot be read.
    TSize SizeOf(const TMuWallpaper& item) const { return m_source.SizeOf(item.FileName()); }

    // What the status line says of the selected item.
    std::string StatusText() const;

private:
    void TellProblem(const std::string& problem);

    TCore& m_core;
    std::string m_problem; // with the add-ons
    TSourcePicture m_source;
    std::string m_secondTry; // the file that there was no memory for
};

} // namespace murala
