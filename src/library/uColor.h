// Colours and tints.
#pragma once

#include <cstdint>

namespace murala
{

// 0x00BBGGRR: red in the low byte.
using TColor = std::uint32_t;

// One value a channel, each -256..255: -256 makes the channel black, 0 leaves it as it is, 255
// makes it full.
struct TTint {
    int Red = 0, Green = 0, Blue = 0;

    bool IsGrey() const { return Red == Green && Green == Blue; }
    friend bool operator==(const TTint&, const TTint&) = default;
};

// Which of a tint's values are meant.
enum class TChannel { All, Red, Green, Blue };

} // namespace murala
