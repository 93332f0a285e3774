#include "uSettling.h"

#include "uDoor.h"

#include <glib.h>

#include <utility>

namespace murala
{

namespace
{
constexpr guint SettlingMs = 1000;
}

void TSettling::Begin()
{
    End();
    m_source = g_timeout_add(
        SettlingMs,
        [](gpointer data) -> gboolean {
            auto* self = static_cast<TSettling*>(data);
            self->m_source = 0;
            NoThrow(self->m_onSettled);
            return G_SOURCE_REMOVE;
        },
        this);
}

void TSettling::End()
{
    if (const unsigned source = std::exchange(m_source, 0); source != 0)
        g_source_remove(source);
}

} // namespace murala
