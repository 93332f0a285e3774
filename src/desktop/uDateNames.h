// How the user's language writes dates.
#pragma once

#include "uDateFormat.h"

#include <string>

namespace murala
{

// Of the language with this name, as the system names it ("de_DE.UTF-8", "de-DE"); without a name
// that of the user. English where the system does not know the language.
TDateNames LanguageDateNames(const std::string& language = {});

} // namespace murala
