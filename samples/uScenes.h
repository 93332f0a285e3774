// The sample pictures.
#pragma once

#include "uScene.h"

#include <memory>

namespace murala
{

// Mountains in the morning mist above a lake.
std::unique_ptr<TScene> MakeLandscape();
// A planet of gas with its ring.
std::unique_ptr<TScene> MakePlanet();
// A blue planet's edge below the stars: quiet enough to lie behind a calendar.
std::unique_ptr<TScene> MakeOcean();
// Folds of coloured silk.
std::unique_ptr<TScene> MakeAbstract();
// A pattern of fans; the picture's edges fit together.
std::unique_ptr<TScene> MakeWaves();

} // namespace murala
