#include "uBusExport.h"

namespace murala
{

TBusExport::TBusExport(GDBusConnection* bus, const char* path, const char* xml,
                       const GDBusInterfaceVTable& table, gpointer data)
    : m_bus(bus), m_path(path), m_node(g_dbus_node_info_new_for_xml(xml, nullptr)),
      m_id(g_dbus_connection_register_object(bus, path, m_node->interfaces[0], &table, data,
                                             nullptr, nullptr))
{
}

TBusExport::~TBusExport()
{
    if (m_id != 0)
        g_dbus_connection_unregister_object(m_bus, m_id);
}

void TBusExport::Tell(const char* signal, GVariant* arguments) const
{
    g_dbus_connection_emit_signal(m_bus, nullptr, m_path, m_node->interfaces[0]->name, signal,
                                  arguments, nullptr);
}

} // namespace murala
