#include "uWindowPresence.h"

namespace murala
{

void TWindowPresence::Go(TPresence where)
{
    m_where = where;
    if (where == TPresence::Going)
        return;
    const bool isVisible = where == TPresence::Coming || where == TPresence::Shown;
    if (!std::exchange(m_isVisible, isVisible) && isVisible)
        m_frame.Appear();
}

void TWindowPresence::Start()
{
    if (m_where != TPresence::Starting)
        return; // the session has ended while a wallpaper was applied at the start
    if (m_isVisible) {
        Go(TPresence::Coming);
        return m_frame.ShowFrame();
    }
    Go(TPresence::Hidden);
    WayBackChanged();
}

void TWindowPresence::ShowAsIcon()
{
    Go(TPresence::Icon);
    m_isNewIcon = true;
    m_frame.IconizeFrame(true);
    m_frame.ShowFrame();
    m_frame.WaitToSettle(); // as an icon it may not come to the screen for long
}

void TWindowPresence::Minimise()
{
    if (IsStartingOrGoing() || m_where == TPresence::Hidden)
        return;
    if (!m_wayBack().IsThere)
        return m_frame.IconizeFrame(true);
    Go(TPresence::Hidden);
    m_frame.HideFrame();
    m_frame.ExplainHiding();
}

void TWindowPresence::Restore()
{
    if (IsStartingOrGoing())
        return;
    const bool wasHidden = m_where == TPresence::Hidden;
    m_isNewIcon = false;
    if (wasHidden)
        Go(TPresence::Coming);
    m_frame.IconizeFrame(false);
    if (wasHidden)
        m_frame.ShowFrame();
    m_frame.RaiseFrame();
}

void TWindowPresence::CameToScreen()
{
    if (m_where == TPresence::Coming)
        m_frame.WaitToSettle();
}

void TWindowPresence::Iconized(bool isIcon)
{
    if (isIcon && (m_where == TPresence::Coming || m_where == TPresence::Shown)) {
        Go(TPresence::Icon);
        m_frame.WaitToHideIcon();
    } else if (!isIcon && m_where == TPresence::Icon && !m_isNewIcon) {
        Go(m_wasPlaced ? TPresence::Shown : TPresence::Coming);
        if (!m_wasPlaced)
            m_frame.WaitToSettle();
    }
}

void TWindowPresence::Settled()
{
    if (m_where == TPresence::Coming) {
        Go(TPresence::Shown);
        m_frame.PlaceFrame(!std::exchange(m_wasPlaced, true));
    } else if (m_where == TPresence::Icon && std::exchange(m_isNewIcon, false)) {
        m_frame.IconizeFrame(true);
        m_frame.WaitToSettle();
    } else if (m_where == TPresence::Icon && !m_frame.IsIcon()) {
        Iconized(false); // this window manager has no icons
    }
}

void TWindowPresence::HideIcon()
{
    if (m_where == TPresence::Icon && m_wayBack().IsThere)
        Minimise();
}

void TWindowPresence::WayBackChanged()
{
    const TWayBack wayBack = m_wayBack();
    if (IsStartingOrGoing() || wayBack.IsAsked)
        return;
    if (wayBack.IsThere && m_where == TPresence::Icon) {
        Go(TPresence::Hidden);
        m_frame.HideFrame();
    } else if (!wayBack.IsThere && m_where == TPresence::Hidden) {
        ShowAsIcon();
    }
}

bool TWindowPresence::Wake(bool isPaused)
{
    // The activation, or the next start, takes the files in.
    if (IsStartingOrGoing())
        return false;
    m_isWakePending = isPaused;
    return !isPaused;
}

bool TWindowPresence::Close(bool isPaused)
{
    m_isClosePending = isPaused;
    if (!isPaused)
        Go(TPresence::Going);
    return !isPaused;
}

void TWindowPresence::EndSession(bool isPaused)
{
    Go(TPresence::Going);
    m_isClosePending = isPaused;
    if (!isPaused)
        m_frame.CloseLater();
}

void TWindowPresence::PauseEnded()
{
    if (std::exchange(m_isClosePending, false))
        m_frame.CloseLater();
    else if (std::exchange(m_isWakePending, false))
        m_frame.WakeLater();
}

} // namespace murala
