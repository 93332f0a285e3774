// A picture that is held in memory; what kind it is, is the affair of who made it.
#pragma once

namespace murala
{

class TPicture
{
public:
    virtual ~TPicture() = default;
};

} // namespace murala
