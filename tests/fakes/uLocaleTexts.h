// Whether the locale's keys order texts as the system itself does.
#pragma once

#include "uLocale.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace murala
{

// `compare` is three-way, 0 for the same place.
inline void
ExpectSameOrder(TLocale& locale,
                const std::function<int(const std::string&, const std::string&)>& compare)
{
    std::vector<std::string> texts{"", "a b", std::string(900, '~')};
    std::istringstream words("a A b e E f z ä é Æ ss ß ab a-b coop co-op 9 10 _ 字 x\xFF");
    for (std::string word; words >> word;)
        texts.push_back(word);
    for (const std::string& a : texts)
        for (const std::string& b : texts)
            EXPECT_EQ(locale.SortKey(a) <=> locale.SortKey(b), compare(a, b) <=> 0)
                << a << ' ' << b;
}

} // namespace murala
