// How busy the program was.
#pragma once

// Of the whole process since its start, in milliseconds.
double ProcessorTime();
