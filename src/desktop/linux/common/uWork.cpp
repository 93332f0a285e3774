#include "uWork.h"

#include "uDoor.h"
#include "uGLib.h"

#include <glib-unix.h>

namespace murala
{

namespace
{

gboolean Repeat(gpointer work)
{
    bool goesOn = true;
    NoThrow([&] { goesOn = (*static_cast<TRepeatedWork*>(work))(); });
    return goesOn ? G_SOURCE_CONTINUE : G_SOURCE_REMOVE;
}

gboolean RepeatOnData(gint /*descriptor*/, GIOCondition /*condition*/, gpointer work)
{
    return Repeat(work);
}

TSource Attach(GSource* source, GSourceFunc call, TRepeatedWork work)
{
    g_source_set_callback(source, call, new TRepeatedWork(std::move(work)),
                          [](gpointer data) { delete static_cast<TRepeatedWork*>(data); });
    g_source_attach(source, nullptr);
    return TSource(source);
}

struct TWork {
    std::function<void()> Work, OnDone;
};

} // namespace

void TSourceEnd::operator()(GSource* source) const noexcept
{
    g_source_destroy(source);
    g_source_unref(source);
}

TSource RunEvery(unsigned milliseconds, TRepeatedWork work)
{
    return Attach(g_timeout_source_new(milliseconds), Repeat, std::move(work));
}

TSource RunOnData(int descriptor, TRepeatedWork work)
{
    constexpr auto condition = static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR);
    return Attach(g_unix_fd_source_new(descriptor, condition), G_SOURCE_FUNC(RepeatOnData),
                  std::move(work));
}

TSource RunOnSignal(int signal, TRepeatedWork work)
{
    return Attach(g_unix_signal_source_new(signal), Repeat, std::move(work));
}

TSource RunAfter(unsigned milliseconds, std::function<void()> action)
{
    return RunEvery(milliseconds, [action = std::move(action)] {
        NoThrow(action);
        return false;
    });
}

void RunLater(unsigned milliseconds, std::function<void()> action)
{
    g_source_unref(RunAfter(milliseconds, std::move(action)).release());
}

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

} // namespace murala
