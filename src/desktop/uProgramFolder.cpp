#include "uProgramFolder.h"

namespace murala
{

std::string InstalledProgramFile()
{
    return MURALA_INSTALLED_PROGRAM;
}

} // namespace murala
