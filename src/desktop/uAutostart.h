// The entry that starts the program with the user's session.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace murala
{

inline constexpr std::string_view ApplicationTitle = "Murala";

class TAutostart
{
public:
    virtual ~TAutostart() = default;

    // Whether the session starts `name`. An entry that the user has switched off in the desktop's
    // own settings does not count.
    virtual bool RunValueExists(const std::string& name) = 0;
    // Makes or changes the entry. `command`: the program's full path and its arguments.
    virtual void SetRunValue(const std::string& name, const std::string& command) = 0;
    // As far as the user may: an entry for the whole machine can stay, so ask again afterwards. An
    // entry that is switched off stays as the user left it.
    virtual void DeleteRunValue(const std::string& name) = 0;
};

std::unique_ptr<TAutostart> NewAutostart();

} // namespace murala
