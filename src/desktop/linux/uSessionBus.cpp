#include "uSessionBus.h"

#include <cstdlib>
#include <filesystem>

namespace murala
{

namespace
{
constexpr int TimeLimitMs = 5000;
constexpr int ShortTimeLimitMs = 500;

// Without this GLib would start a bus of its own, at every call, where nobody is to be found.
bool HasSessionBus()
{
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    std::error_code error;
    return std::getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr ||
           (runtime != nullptr &&
            std::filesystem::exists(std::filesystem::path(runtime) / "bus", error));
}

TVariant Call(const TBusObject& object, const char* method, GVariant* arguments,
              const char* answerType, GDBusCallFlags flags, int timeLimitMs)
{
    const TVariant owned(arguments != nullptr ? g_variant_ref_sink(arguments) : nullptr);
    const TGObject<GDBusConnection> bus(
        HasSessionBus() ? g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr) : nullptr);
    if (!bus)
        return nullptr;
    // A bus that goes away must not take the program with it.
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    return TVariant(g_dbus_connection_call_sync(
        bus.get(), object.Name, object.Path, object.Interface, method, owned.get(),
        answerType != nullptr ? G_VARIANT_TYPE(answerType) : nullptr, flags, timeLimitMs, nullptr,
        nullptr));
}

} // namespace

TVariant CallSessionBus(const TBusObject& object, const char* method, GVariant* arguments,
                        const char* answerType)
{
    return Call(object, method, arguments, answerType, G_DBUS_CALL_FLAGS_NONE, TimeLimitMs);
}

TVariant AskRunningProgram(const TBusObject& object, const char* method, const char* answerType)
{
    return Call(object, method, nullptr, answerType, G_DBUS_CALL_FLAGS_NO_AUTO_START,
                ShortTimeLimitMs);
}

} // namespace murala
