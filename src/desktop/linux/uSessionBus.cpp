#include "uSessionBus.h"

namespace murala
{

namespace
{
constexpr int TimeLimitMs = 5000;
constexpr int ShortTimeLimitMs = 500;

TVariant Call(const TBusObject& object, const char* method, GVariant* arguments,
              const char* answerType, GDBusCallFlags flags, int timeLimitMs)
{
    const TVariant owned(arguments != nullptr ? g_variant_ref_sink(arguments) : nullptr);
    const TGObject<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
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
