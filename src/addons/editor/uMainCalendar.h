// The calendar editor's dialog.
#pragma once

#include "uCalendarImage.h"
#include "uChannelBars.h"
#include "uMuCalendar.h"
#include "uServices.h"

#include <array>
#include <optional>

#include <wx/checkbox.h>
#include <wx/clrpicker.h>
#include <wx/combobox.h>
#include <wx/dialog.h>
#include <wx/notebook.h>
#include <wx/scrolwin.h>
#include <wx/slider.h>
#include <wx/spinctrl.h>
#include <wx/statbox.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>

namespace murala
{

class TfMainCalendar : public wxDialog
{
public:
    // When the caller gives a background, there are no controls for its file, and none is stored.
    // Throws EFileError when the calendar's file cannot be read; it is not written then.
    TfMainCalendar(wxWindow* parent, const TServices& services,
                   std::optional<TBitmap> background = std::nullopt);

    const TCalendarSettings& Settings() const { return m_calendar.Settings; }

private:
    // One area of the calendar with its tint.
    struct TBlendingArea {
        wxStaticBox* Box = nullptr;
        TChannelBars* Bars = nullptr;
        wxToggleButton* Advanced = nullptr;
        TTint TCalendarSettings::*Tint = nullptr;
    };

    // Building, in this order.
    wxSizer* BuildToolBar();
    wxWindow* BuildPages();
    wxWindow* BuildSizePage(wxWindow* parent);
    wxWindow* BuildFeaturesPage(wxWindow* parent);
    wxSizer* BuildTitleGroup(wxWindow* page);
    wxSizer* BuildFontGroup(wxWindow* page);
    wxSizer* BuildBorderGroup(wxWindow* page);
    wxSizer* BuildBackgroundGroup(wxWindow* page);
    wxWindow* BuildBlendingPage(wxWindow* parent);
    wxSizer* BuildArea(wxWindow* page, std::size_t area);
    void BuildPreview();
    wxSizer* BuildBottom();
    void BindEvents();

    wxSizer* NewRow(wxWindow* parent, const wxString& caption, wxWindow* control);
    wxButton* NewButton(wxWindow* parent, const wxString& caption, const wxString& hint,
                        const wxString& name, void (TfMainCalendar::*execute)());
    wxSlider* NewPositionBar(wxWindow* parent, const wxString& caption, const wxString& name,
                             int TCalendarSettings::*value);
    wxSpinCtrl* NewSizeEdit(wxWindow* parent, int minimum, int maximum, const wxString& name);
    wxSizer* NewFontRow(wxWindow* parent, const wxString& caption, const wxString& name,
                        TMuFont TCalendarSettings::*font);

    void Load();
    void ShowSettings();
    void LoadBackground();
    std::optional<std::string> BackgroundPath() const;

    // Actions.
    void aRenderExecute();
    void aFontExecute(TMuFont TCalendarSettings::*font, const wxString& caption);
    void aBackgroundFileExecute();
    void aSaveExecute();
    void SetViewMode(int mode);
    void aViewNextExecute() { SetViewMode(m_editor.ViewMode == 0 ? 1 : 0); }
    void aAdvancedExecute(TBlendingArea& area);
    void aBordersExecute();
    void aBorderColorExecute();
    void aOkExecute();

    void TitleFormatChanged();
    void WidthTyped(const wxString& text);
    void HeightTyped(const wxString& text);
    TSize ShownSize() const;
    void ShowMessage(const std::string& text);

    TServices m_services;
    TMuCalendar m_calendar;
    TCalendarEditorSettings m_editor;
    bool m_hasBackgroundFile;
    bool m_isShowing = false; // the program sets the controls, not the user

    wxSpinCtrl* seCalendarWidth = nullptr;
    wxSpinCtrl* seCalendarHeight = nullptr;
    wxSlider* tbXPos = nullptr;
    wxSlider* tbYPos = nullptr;
    wxComboBox* cbTitleFormat = nullptr;
    wxTextCtrl* eBackground = nullptr;
    wxCheckBox* cbBorders = nullptr;
    wxPanel* pBorderColor = nullptr;
    struct TFontColor {
        wxColourPickerCtrl* Picker;
        TMuFont TCalendarSettings::*Font;
    };
    std::vector<TFontColor> m_fontColors;
    std::array<TBlendingArea, 4> m_areas;
    wxToggleButton* bFitToWindow = nullptr;
    wxToggleButton* bActualSize = nullptr;
    wxScrolledWindow* sbCalendar = nullptr;
    TCalendarImage* iCalendar = nullptr;
};

} // namespace murala
