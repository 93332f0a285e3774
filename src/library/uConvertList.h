// The convert list as an INI section: the find text is the key, the replacement the value.
#pragma once

#include "uIniFile.h"
#include "uTitle.h"

namespace murala
{

// A replacement is written in double quotes, an empty one as "(blank)" (so that a replacement of
// just this word becomes empty). A find text that would not survive as a key stands in double
// quotes, with the characters in the way written as "%" and two hexadecimal digits.
TIniPairs ConvertListToPairs(const TConvertList& list);
TConvertList PairsToConvertList(const TIniPairs& pairs);

} // namespace murala
