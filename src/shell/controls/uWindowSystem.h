// What the toolkit leaves to the window system of each home.
#pragma once

class wxTopLevelWindow;

namespace murala
{

// Right before a window is shown for the first time, when its size has been set.
void PrepareFirstShow(wxTopLevelWindow& window);

} // namespace murala
