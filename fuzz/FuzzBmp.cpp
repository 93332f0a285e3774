#include "FuzzPicture.h"
#include "uBmpFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    murala::ReadPicture(data, size, murala::OpenBmp, murala::BmpSize);
    return 0;
}
