#include "uSamplePictures.h"

#include "uPath.h"
#include "uPictureFormats.h"
#include "uShippedFile.h"
#include "uText.h"

#include <algorithm>
#include <filesystem>

namespace murala
{

std::vector<std::string> SamplePictures(const TServices& services)
{
    const auto folder = FindShippedFile(services, "samples");
    if (!folder)
        return {};
    std::vector<std::string> pictures;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(NativePath(*folder), error), end;
         !error && entry != end; entry.increment(error))
        if (std::string path = PathText(entry->path());
            HasPictureExtension(path) && IsReachableFile(path))
            pictures.push_back(std::move(path));
    if (error)
        throw EFileError(
            FormatText("The folder %s could not be read: %s", {*folder, error.message()}));
    std::ranges::sort(pictures);
    return pictures;
}

} // namespace murala
