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
    // Three-way, case-sensitive, in the user's order.
    virtual int Compare(const std::string& a, const std::string& b) = 0;
    virtual std::string UpperCase(const std::string& text) = 0;
};

std::unique_ptr<TLocale> NewLocale();

} // namespace murala
