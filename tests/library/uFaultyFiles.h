// Files that fail: every operation of the tests' programs on files goes through here.
#pragma once

namespace murala
{

struct TFileFaults {
    int FirstBad = -1; // number of the operation that fails, from 0
    int BadCount = 1;  // how many fail, one after the other
    int Done = 0;      // operations so far

    bool IsNextBad()
    {
        const int number = Done++;
        return FirstBad >= 0 && number >= FirstBad && number < FirstBad + BadCount;
    }
};
extern TFileFaults FileFaults;

} // namespace murala
