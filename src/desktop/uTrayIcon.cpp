#include "uTrayIcon.h"

#include "uText.h"

#include <algorithm>
#include <utility>

namespace murala
{

std::string ShortHint(const std::string& hint)
{
    constexpr std::size_t most = 80;
    return WithoutMiddle(hint, most);
}

const TBitmap& ImageOfSide(const TIconImage& image, int side)
{
    for (const TBitmap& bitmap : image)
        if (bitmap.Width() >= side)
            return bitmap;
    return image.back();
}

TMuTrayIcon::~TMuTrayIcon()
{
    Remove();
    for (TTrayArea* area : m_areas)
        area->Listen(nullptr);
}

void TMuTrayIcon::AddArea(TTrayArea& area)
{
    area.Listen(this);
    m_areas.push_back(&area);
}

// Null while a better one than those that are there has not answered yet.
TTrayArea* TMuTrayIcon::BestArea() const
{
    for (TTrayArea* area : m_areas)
        if (const TTrayState state = area->State(); state != TTrayState::Missing)
            return state == TTrayState::There ? area : nullptr;
    return nullptr;
}

bool TMuTrayIcon::IsAsking() const
{
    return std::ranges::any_of(m_areas,
                               [](TTrayArea* area) { return area->State() == TTrayState::Asking; });
}

void TMuTrayIcon::SetHint(const std::string& hint)
{
    if (hint == m_look.Hint)
        return;
    m_look.Hint = hint;
    Modify();
}

void TMuTrayIcon::SetIcon(std::shared_ptr<const TIconImage> icon)
{
    m_look.Icon = std::move(icon);
    Modify();
}

void TMuTrayIcon::Add()
{
    m_isWanted = true;
    if (Added())
        return;
    TTrayArea* area = BestArea();
    if (area == nullptr || !area->Add(m_look))
        return;
    m_area = area;
    TellChanged();
}

bool TMuTrayIcon::Modify()
{
    return Added() && m_area->Modify(m_look);
}

bool TMuTrayIcon::IsInPlace()
{
    TTrayArea* best = BestArea();
    return Modify() && (best == nullptr || best == m_area);
}

void TMuTrayIcon::Refresh()
{
    if (!m_isWanted || IsInPlace())
        return;
    if (TTrayArea* lost = std::exchange(m_area, nullptr)) {
        lost->Remove();
        Add();
        if (!Added())
            TellChanged();
    } else {
        Add();
    }
}

void TMuTrayIcon::Remove()
{
    m_isWanted = false;
    if (TTrayArea* area = std::exchange(m_area, nullptr))
        area->Remove();
}

void TMuTrayIcon::TrayAreaChanged()
{
    m_way.Post([this] {
        Refresh();
        TellChanged();
    });
}

void TMuTrayIcon::TellChanged()
{
    if (OnChanged)
        OnChanged();
}

void TMuTrayIcon::Count(const std::function<void()>& handle)
{
    if (!Added())
        return;
    if (Enabled)
        handle();
    else if (OnIgnoredClick)
        OnIgnoredClick();
}

void TMuTrayIcon::TrayLeftClick()
{
    m_way.Post([this] { Count(OnLeftClick); });
}

void TMuTrayIcon::TrayRightClick(TPoint cursor)
{
    m_way.Post([=, this] { Count([&] { OnRightClick(cursor); }); });
}

// At once: the desktop waits for the menu.
void TMuTrayIcon::TrayMenuOpens()
{
    if (Enabled && OnMenuOpens)
        m_door.Pass(OnMenuOpens);
}

void TMuTrayIcon::TrayMenuChosen(const TMenuTarget& target)
{
    m_way.Post([=, this] { Count([&] { OnMenuChosen(target); }); });
}

} // namespace murala
