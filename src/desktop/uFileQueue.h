// Names of files that one copy of the program leaves for another. The queue belongs to the user,
// whichever copy of the program asks, and outlives the program.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace murala
{

class TFileQueue
{
public:
    virtual ~TFileQueue() = default;

    // Names that are there already are not doubled. False when not all of them could be kept.
    virtual bool QueueFiles(const std::vector<std::string>& names) = 0;
    // Empties the queue. A name that cannot be deleted from it is not returned: it would be
    // returned again and again.
    virtual std::vector<std::string> TakeQueuedFiles() = 0;
};

std::unique_ptr<TFileQueue> NewFileQueue();

} // namespace murala
