// A door that holds what comes until the test lets it in.
#pragma once

#include "uDoor.h"

#include <deque>
#include <string>
#include <vector>

namespace murala
{

struct TFakeDoor : TDoor {
    std::deque<std::function<void()>> Queue;
    std::vector<std::string> Problems; // what was thrown

    void Post(std::function<void()> work) override { Queue.push_back(std::move(work)); }
    // Also what comes meanwhile.
    void Open()
    {
        while (!Queue.empty()) {
            const auto work = std::move(Queue.front());
            Queue.pop_front();
            try {
                work();
            } catch (const std::exception& error) {
                Problems.emplace_back(error.what());
            }
        }
    }
};

} // namespace murala
