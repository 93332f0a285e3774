#include "uWork.h"

#include "uDoor.h"
#include "uGLib.h"

namespace murala
{

namespace
{
struct TWork {
    std::function<void()> Work, OnDone;
};
} // namespace

void WorkAside(std::function<void()> work, std::function<void()> onDone)
{
    const TGObject<GTask> task(g_task_new(
        nullptr, nullptr,
        [](GObject*, GAsyncResult* result, gpointer) {
            NoThrow(static_cast<TWork*>(g_task_get_task_data(G_TASK(result)))->OnDone);
        },
        nullptr));
    g_task_set_task_data(task.get(), new TWork{std::move(work), std::move(onDone)},
                         [](gpointer data) { delete static_cast<TWork*>(data); });
    g_task_run_in_thread(task.get(), [](GTask*, gpointer, gpointer data, GCancellable*) {
        NoThrow(static_cast<TWork*>(data)->Work);
    });
}

void RunLater(unsigned milliseconds, std::function<void()> action)
{
    g_timeout_add_full(
        G_PRIORITY_DEFAULT, milliseconds,
        [](gpointer data) -> gboolean {
            NoThrow(*static_cast<std::function<void()>*>(data));
            return G_SOURCE_REMOVE;
        },
        new std::function<void()>(std::move(action)),
        [](gpointer data) { delete static_cast<std::function<void()>*>(data); });
}

} // namespace murala
