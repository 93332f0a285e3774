// How the user's language orders and spells.
#pragma once

#include <memory>
#include <string>

namespace murala
{

class TLocale
{
public:
    virtual ~TLocale() = default;
    // Bytes that are in order where the texts are, case-sensitive, in the user's order. To compare
    // them takes a hundredth of the time that the texts would take.
    virtual std::string SortKey(const std::string& text) = 0;
    virtual std::string UpperCase(const std::string& text) = 0;
};

std::unique_ptr<TLocale> NewLocale();

} // namespace murala
