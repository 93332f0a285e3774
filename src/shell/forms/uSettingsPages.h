// The pages of pcEffect that show and change the selected wallpaper's settings.
#pragma once

#include "uActionBinder.h"
#include "uMurala.h"

#include <array>
#include <functional>

#include <wx/notebook.h>
#include <wx/scrolwin.h>
#include <wx/slider.h>

namespace murala
{

// A page scrolls where the window is too small for it, so that nothing is cut.
class TSettingsPage : public wxScrolledWindow
{
public:
    TSettingsPage(wxWindow* parent, const wxString& name);
    // Shows the item's values; null: there is none, and everything is disabled.
    virtual void ShowItem(const TMuWallpaper* item) = 0;

protected:
    // Adds the margin and makes the scroll range.
    void Finish(wxSizer* content);
};

// tsDesktop: the colour behind the picture, and the icons' text.
class TDesktopPage : public TSettingsPage
{
public:
    TDesktopPage(wxWindow* parent, TMurala& murala, TActionBinder& binder, TActionList& actions);
    void ShowItem(const TMuWallpaper* item) override;

private:
    wxButton* NewColorButton(TColor color, const wxString& name, const wxString& caption,
                             const wxString& hint);

    TMurala& m_murala;
    wxPanel* m_desktopColor;
    wxButton* m_black;
    wxButton* m_white;
    wxCheckBox* m_transparentIcons = nullptr;
};

// tsGamma: the tint's style and its two ends.
class TTintPage : public TSettingsPage
{
public:
    TTintPage(wxWindow* parent, TMurala& murala);
    void ShowItem(const TMuWallpaper* item) override;

private:
    struct TTintGroup {
        wxStaticBox* Box = nullptr;
        std::array<wxSlider*, 4> Bars{}; // by TTintChannel
    };
    wxSizer* NewTintGroup(TTintGroup& group, TTintEnd end);
    void tbGammaScroll(TTintEnd end, TTintChannel channel);
    void EnableGroups(const TMuWallpaper* item);

    TMurala& m_murala;
    wxChoice* m_style;
    TTintGroup m_start, m_end;
};

// tsEffect: the program that is started on the wallpaper.
class TEffectPage : public TSettingsPage
{
public:
    TEffectPage(wxWindow* parent, TMurala& murala);
    void ShowItem(const TMuWallpaper* item) override;

private:
    TMurala& m_murala;
    wxChoice* m_effect;
    wxButton* m_settings;
};

} // namespace murala
