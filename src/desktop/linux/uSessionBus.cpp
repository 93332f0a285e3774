#include "uSessionBus.h"

#include <cstdlib>
#include <filesystem>

namespace murala
{

namespace
{
constexpr int TimeLimitMs = 5000;
}

bool HasSessionBus()
{
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    std::error_code error;
    return std::getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr ||
           (runtime != nullptr &&
            std::filesystem::exists(std::filesystem::path(runtime) / "bus", error));
}

TVariant CallSessionBus(const TBusObject& object, const char* method, GVariant* arguments,
                        const char* answerType)
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
        answerType != nullptr ? G_VARIANT_TYPE(answerType) : nullptr, G_DBUS_CALL_FLAGS_NONE,
        TimeLimitMs, nullptr, nullptr));
}

} // namespace murala
