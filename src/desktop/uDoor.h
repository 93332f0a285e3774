// The one door for what comes from outside of the toolkit: D-Bus, sockets, sources of GLib, hooks,
// window procedures, threads.
//
// These call at any moment, also inside a dialog or while the program ends; they bring no idle
// turn, in which the toolkit lets go of windows; and what calls them knows no exceptions.
#pragma once

#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

namespace murala
{

class TDoor
{
public:
    virtual ~TDoor() = default;

    // From any thread: `work` runs in that of the windows, between two events of its loop (a
    // dialog's, too), and an idle turn follows. What it throws ends in the status line. It is
    // dropped when the program ends before.
    virtual void Post(std::function<void()> work) = 0;

    // At once, where the caller needs what is done here: a menu that is about to be drawn, the end
    // of the session. What is thrown is posted.
    void Pass(const std::function<void()>& work) noexcept;
};

// An object's own way through the door: what has not run yet when the object goes never runs.
class TDoorway
{
public:
    explicit TDoorway(TDoor& door) : m_door(door) {}
    TDoorway(const TDoorway&) = delete;
    TDoorway& operator=(const TDoorway&) = delete;

    // A function for others to call, which posts the work with its arguments.
    template<typename TWork>
    auto Through(TWork work) const
    {
        return [&door = m_door, alive = std::weak_ptr(m_alive),
                work = std::move(work)](const auto&... arguments) {
            door.Post([=] {
                if (!alive.expired())
                    work(arguments...);
            });
        };
    }
    // Likewise for callers who need what is done at once (see TDoor::Pass).
    template<typename TWork>
    auto AtOnce(TWork work) const
    {
        return [&door = m_door, alive = std::weak_ptr(m_alive),
                work = std::move(work)](const auto&... arguments) {
            if (!alive.expired())
                door.Pass([&] { work(arguments...); });
        };
    }
    template<typename TWork>
    void Post(TWork work) const
    {
        Through(std::move(work))();
    }

private:
    TDoor& m_door;
    std::shared_ptr<const void> m_alive = std::make_shared<char>();
};

// For the functions that C calls: what gets as far as this is told on stderr.
template<typename TWork>
void NoThrow(const TWork& work) noexcept
{
    try {
        work();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "Murala: %s\n", error.what());
    } catch (...) {
        std::fputs("Murala: an unknown failure\n", stderr);
    }
}

} // namespace murala
