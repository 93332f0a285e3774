#include "../uProcessorTime.h"

#include <ctime>

double ProcessorTime()
{
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}
