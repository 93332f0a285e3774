#include "FuzzPicture.h"
#include "uJpegFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    murala::ReadPicture(data, size, murala::OpenJpeg, murala::JpegSize);
    return 0;
}
