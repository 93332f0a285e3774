#include "uSessionBus.h"

#include "uDoor.h"

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
                        const char* answerType, int limitMs)
{
    const TVariant owned(arguments != nullptr ? g_variant_ref_sink(arguments) : nullptr);
    const TGObject<GDBusConnection> bus(
        HasSessionBus() ? g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr) : nullptr);
    if (!bus)
        return nullptr;
    // The program must not end with the bus.
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    return TVariant(g_dbus_connection_call_sync(
        bus.get(), object.Name, object.Path, object.Interface, method, owned.get(),
        answerType != nullptr ? G_VARIANT_TYPE(answerType) : nullptr, G_DBUS_CALL_FLAGS_NONE,
        limitMs, nullptr, nullptr));
}

namespace
{

struct TCall {
    TBusObject Object;
    const char* Method;
    TVariant Arguments;
    const char* AnswerType;
    TOnBusAnswer OnAnswer;
};

void OnCallDone(GObject* bus, GAsyncResult* result, gpointer data)
{
    const std::unique_ptr<TCall> call(static_cast<TCall*>(data));
    const TVariant answer(g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr));
    NoThrow([&] { call->OnAnswer(answer.get()); });
}

void OnBus(GObject* /*source*/, GAsyncResult* result, gpointer data)
{
    std::unique_ptr<TCall> call(static_cast<TCall*>(data));
    const TGObject<GDBusConnection> bus(g_bus_get_finish(result, nullptr));
    if (!bus)
        return NoThrow([&] { call->OnAnswer(nullptr); });
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    const TBusObject& object = call->Object;
    g_dbus_connection_call(bus.get(), object.Name, object.Path, object.Interface, call->Method,
                           call->Arguments.get(),
                           call->AnswerType != nullptr ? G_VARIANT_TYPE(call->AnswerType) : nullptr,
                           G_DBUS_CALL_FLAGS_NONE, TimeLimitMs, nullptr, OnCallDone, call.get());
    static_cast<void>(call.release()); // OnCallDone owns it
}

} // namespace

void CallSessionBusLater(const TBusObject& object, const char* method, GVariant* arguments,
                         const char* answerType, TOnBusAnswer onAnswer)
{
    TVariant owned(arguments != nullptr ? g_variant_ref_sink(arguments) : nullptr);
    if (!HasSessionBus())
        return onAnswer(nullptr);
    g_bus_get(G_BUS_TYPE_SESSION, nullptr, OnBus,
              new TCall{object, method, std::move(owned), answerType, std::move(onAnswer)});
}

} // namespace murala
