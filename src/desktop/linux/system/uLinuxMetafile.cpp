#include "uImageFile.h"
#include "uMetafile.h"

namespace murala
{

TBitmap LoadMetafile(const std::string& fileName)
{
    throw EInvalidImage(fileName, "there are no metafiles on this system");
}

} // namespace murala
