// The tray of X11, for panels that do not know notifier items.
#include "uToolkitTray.h"

#include "uTrayFrames.h"
#include "uWxText.h"

#include <wx/bitmap.h>
#include <wx/bmpbndl.h>
#include <wx/icon.h>
#include <wx/taskbar.h>
#include <wx/utils.h>

namespace murala
{

namespace
{

class TToolkitTrayArea : public TTrayArea
{
public:
    void Listen(TTrayEvents* events) override { m_events = events; }
    TTrayState State() override
    {
        return wxTaskBarIcon::IsAvailable() ? TTrayState::There : TTrayState::Missing;
    }

    bool Add(const TTrayLook& look) override
    {
        m_icon = std::make_unique<wxTaskBarIcon>();
        // The toolkit sends one event for a left click and another one for the menu.
        m_icon->Bind(wxEVT_TASKBAR_LEFT_DOWN, [this](wxTaskBarIconEvent&) {
            if (m_events != nullptr)
                m_events->TrayLeftClick();
        });
        m_icon->Bind(wxEVT_TASKBAR_CLICK, [this](wxTaskBarIconEvent&) {
            const wxPoint cursor = wxGetMouseState().GetPosition();
            if (m_events != nullptr)
                m_events->TrayRightClick({cursor.x, cursor.y});
        });
        return Show(look);
    }
    bool Modify(const TTrayLook& look) override
    {
        if (!m_icon || State() != TTrayState::There)
            return false;
        return (look.Icon == m_look.Icon && look.Hint == m_look.Hint) || Show(look);
    }
    void Remove() override { m_icon.reset(); }

private:
    bool Show(const TTrayLook& look)
    {
        m_look = look;
        if (!look.Icon)
            return false;
        wxBitmap bitmap;
        bitmap.CopyFromIcon(ToIconBundle(*look.Icon).GetIcon(wxSize(32, 32)));
        return m_icon->SetIcon(bitmap, ToWx(ShortHint(look.Hint)));
    }

    TTrayEvents* m_events = nullptr;
    TTrayLook m_look;
    std::unique_ptr<wxTaskBarIcon> m_icon;
};

} // namespace

std::unique_ptr<TTrayArea> NewToolkitTrayArea()
{
    return std::make_unique<TToolkitTrayArea>();
}

} // namespace murala
