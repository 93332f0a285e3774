// An object of ours on a bus, for as long as this lives.
#pragma once

#include "uGLib.h"

namespace murala
{

class TBusExport
{
public:
    // `xml` describes one interface. The connection outlives it; `table` does so, too, and its
    // functions are given `data`, out of the main loop.
    TBusExport(GDBusConnection* bus, const char* path, const char* xml,
               const GDBusInterfaceVTable& table, gpointer data);
    TBusExport(const TBusExport&) = delete;
    TBusExport& operator=(const TBusExport&) = delete;
    ~TBusExport();

    // False when the path was taken.
    bool IsThere() const { return m_id != 0; }
    // To everyone. Takes over a floating `arguments` (a tuple or null).
    void Tell(const char* signal, GVariant* arguments = nullptr) const;

private:
    struct TNodeFree {
        void operator()(GDBusNodeInfo* node) const noexcept { g_dbus_node_info_unref(node); }
    };

    GDBusConnection* m_bus;
    const char* m_path;
    std::unique_ptr<GDBusNodeInfo, TNodeFree> m_node;
    guint m_id;
};

} // namespace murala
