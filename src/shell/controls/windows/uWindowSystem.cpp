#include "uWindowSystem.h"

namespace murala
{

void PrepareFirstShow(wxTopLevelWindow& /*window*/) {}

} // namespace murala
