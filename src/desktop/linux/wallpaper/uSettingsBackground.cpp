// Desktops that keep their background in GSettings: GNOME and its relatives, Cinnamon, MATE.
#define G_SETTINGS_ENABLE_BACKEND
#include "uBackground.h"
#include "uFileUri.h"
#include "uGLib.h"

#include <gio/gsettingsbackend.h>

#include <cstdlib>
#include <string_view>

namespace murala
{

namespace
{

using TSchema = std::unique_ptr<GSettingsSchema, TFreeBy<g_settings_schema_unref>>;

// The names that differ between the desktops.
struct TKeys {
    const char* Schema;
    const char* Picture;
    const char* DarkPicture; // shown instead in the dark style; not in every version
    bool PictureIsUri;
};

constexpr TKeys GnomeKeys{"org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true};
constexpr TKeys CinnamonKeys{"org.cinnamon.desktop.background", "picture-uri", "picture-uri-dark",
                             true};
constexpr TKeys MateKeys{"org.mate.background", "picture-filename", "picture-filename-dark", false};

const TKeys& KeysOf(TSession session)
{
    return session == TSession::Cinnamon ? CinnamonKeys
           : session == TSession::Mate   ? MateKeys
                                         : GnomeKeys;
}

TSchema FindSchema(const char* name)
{
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    return TSchema(source != nullptr ? g_settings_schema_source_lookup(source, name, TRUE)
                                     : nullptr);
}

// Without a store on disk GLib quietly keeps settings in this process, where no desktop sees them.
bool SettingsReachTheDesktop()
{
    const char* wanted = std::getenv("GSETTINGS_BACKEND");
    if (wanted != nullptr && std::string_view(wanted) == "memory")
        return true;
    const TGObject<GSettingsBackend> backend(g_settings_backend_get_default());
    return std::string_view(G_OBJECT_TYPE_NAME(backend.get())) != "GMemorySettingsBackend";
}

class TSettingsBackground : public TBackground
{
public:
    explicit TSettingsBackground(TSession session)
        : m_keys(KeysOf(session)), m_schema(FindSchema(m_keys.Schema))
    {
        if (m_schema)
            m_settings.reset(g_settings_new_full(m_schema.get(), nullptr, nullptr));
    }
    TSettingsBackground(const TSettingsBackground&) = delete;
    TSettingsBackground& operator=(const TSettingsBackground&) = delete;

    ~TSettingsBackground() override
    {
        if (m_isWritten) // writes may still be on their way to the store
            g_settings_sync();
    }

    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    {
        const std::string stored = m_keys.PictureIsUri ? FileUri(path) : path;
        if (!MaySetPicture() || !IsText(stored))
            return onTook(TTook::No, "");
        m_isWritten = true;
        Write("picture-options", "zoom");
        if (Has("draw-background")) // MATE's; off, the picture is not shown
            g_settings_set_boolean(m_settings.get(), "draw-background", TRUE);
        SetColor(color);
        Write(m_keys.DarkPicture, stored);
        Write(m_keys.Picture, stored);
        onTook(Read(m_keys.Picture) == stored ? TTook::Yes : TTook::No, "");
    }

    std::optional<TColor> Color() override { return HexTextToColor(Read("primary-color")); }

    void SetColor(TColor color) override
    {
        Write("color-shading-type", "solid");
        Write("primary-color", ColorToHexText(color));
    }

private:
    // An administrator may have locked the picture; the rest then stays as it is, too.
    bool MaySetPicture() const
    {
        return Has(m_keys.Picture) &&
               g_settings_is_writable(m_settings.get(), m_keys.Picture) != FALSE &&
               SettingsReachTheDesktop();
    }

    // An unknown key ends the process inside GSettings.
    bool Has(const char* key) const
    {
        return m_settings && g_settings_schema_has_key(m_schema.get(), key) != FALSE;
    }

    std::string Read(const char* key) const
    {
        return Has(key) ? TGText(g_settings_get_string(m_settings.get(), key)).get() : "";
    }

    void Write(const char* key, const std::string& text)
    {
        if (Has(key))
            g_settings_set_string(m_settings.get(), key, text.c_str());
    }

    const TKeys& m_keys;
    TSchema m_schema;
    TGObject<GSettings> m_settings;
    bool m_isWritten = false;
};

} // namespace

std::unique_ptr<TBackground> NewSettingsBackground(TSession session)
{
    return std::make_unique<TSettingsBackground>(session);
}

} // namespace murala
