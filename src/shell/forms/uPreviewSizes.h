#pragma once

#include <utility>

namespace murala
{

// Preview panel width and preview height in DIPs, by TPreviewSize.
inline constexpr std::pair<int, int> PreviewSizes[] = {{140, 98}, {310, 226}, {620, 458}};

} // namespace murala
