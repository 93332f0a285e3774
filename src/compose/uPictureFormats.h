// The table of picture formats. Everything that depends on a format asks here: file dialogs, files
// that are dropped, the file manager's menu, reading.
#pragma once

#include "uImageFile.h"
#include "uSafeFile.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

// Files as a dialog names them and as their names end: in lower case, the usual end first.
struct TFileKind {
    std::string_view Caption;
    std::string_view Ends[4]; // those that are not needed are empty
    auto Extensions() const
    {
        return std::span(std::begin(Ends), std::ranges::find(Ends, std::string_view()));
    }
};

struct TPictureFormat {
    std::string_view Name; // within a sentence
    TFileKind Files;
    std::string_view Signature; // how the content of a file begins
    std::unique_ptr<TImageReader> (*Open)(TFile file, TDecoding decoding);
    TSize (*Size)(TFile file);
};

std::span<const TPictureFormat> PictureFormats();
std::vector<TFileKind> PictureFileKinds();

// "JPEG or BMP".
std::string PictureFormatNames();

// Whether the file's name ends so, in any letter case.
bool IsOfKind(std::string_view path, const TFileKind& kind);
bool HasPictureExtension(std::string_view path);

// The usual extension of each format, in alphabetical order: what the file manager's menu is for.
std::vector<std::string> UsualPictureExtensions();
// All extensions of the format that has this one.
std::vector<std::string> PictureExtensionsLike(const std::string& extension);

} // namespace murala
