// The controls of the calendar editor.

#include "uMainCalendar.h"

#include "uSwatch.h"
#include "uTint.h"
#include "uWindowSystem.h"
#include "uWxBitmap.h"
#include "uWxText.h"

#include <algorithm>

#include <wx/sizer.h>
#include <wx/stattext.h>

namespace murala
{

namespace
{

constexpr int MinimumWidth = 160, MaximumWidth = 1600;
constexpr int MinimumHeight = 120, MaximumHeight = 1200;
constexpr int PositionTicks = 10;
constexpr TChannelRange BlendingRange{-255, 255, 20};

constexpr const char* TitleFormats[] = {
    "mmmm yyyy", "mmmm yy",    "mmm yyyy",      "mmm yy",         "mm/yyyy",
    "mm/yy",     "dd/mm/yyyy", "ddd mmmm yyyy", "dddd mmmm yyyy",
};

struct TAreaRow {
    const char* Caption;
    TTint TCalendarSettings::*Tint;
    TChannelBars::TNames Bars;
    const char* Advanced;
};
constexpr TAreaRow AreaTable[] = {
    {"Title",
     &TCalendarSettings::TitleGamma,
     {"tbTitleGamma", "tbTitleGammaRed", "tbTitleGammaGreen", "tbTitleGammaBlue"},
     "bTitleAdvanced"},
    {"Day Heading",
     &TCalendarSettings::DayHeadingGamma,
     {"tbDayHeadingGamma", "tbDayHeadingGammaRed", "tbDayHeadingGammaGreen",
      "tbDayHeadingGammaBlue"},
     "bDayHeadingAdvanced"},
    {"Calendar",
     &TCalendarSettings::MainGamma,
     {"tbMainGamma", "tbMainGammaRed", "tbMainGammaGreen", "tbMainGammaBlue"},
     "bCalendarAdvanced"},
    {"Day Box",
     &TCalendarSettings::DayBoxGamma,
     {"tbDayBoxGamma", "tbDayBoxGammaRed", "tbDayBoxGammaGreen", "tbDayBoxGammaBlue"},
     "bDayBoxAdvanced"},
};

wxScrolledWindow* NewPage(wxWindow* parent, const wxString& name)
{
    auto* page = new wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                      wxTAB_TRAVERSAL | wxVSCROLL, name);
    page->SetScrollRate(0, page->FromDIP(8));
    return page;
}

wxWindow* Finish(wxWindow* page, wxSizer* rows)
{
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(rows, wxSizerFlags(1).Expand().DoubleBorder());
    page->SetSizer(frame);
    page->FitInside(); // with a large font the content does not fit
    return page;
}

} // namespace

wxButton* TfMainCalendar::NewButton(wxWindow* parent, const wxString& caption, const wxString& hint,
                                    const wxString& name, void (TfMainCalendar::*execute)())
{
    auto* button = new wxButton(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0,
                                wxDefaultValidator, name);
    button->SetToolTip(hint);
    button->Bind(wxEVT_BUTTON, [this, execute](wxCommandEvent&) { (this->*execute)(); });
    return button;
}

wxSizer* TfMainCalendar::BuildToolBar()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [row](wxWindow* button) {
        row->Add(button, wxSizerFlags().CenterVertical().Border(wxRIGHT));
    };
    add(NewButton(this, "Render Calendar", "Render Calendar", "bRender",
                  &TfMainCalendar::aRenderExecute));
    add(NewButton(this, "Save Image", "Save Image", "bSave", &TfMainCalendar::aSaveExecute));
    row->AddSpacer(FromDIP(12));
    const auto addMode = [&](int mode, const char* caption, const char* name) {
        auto* button = new wxToggleButton(this, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize,
                                          0, wxDefaultValidator, name);
        button->Bind(wxEVT_TOGGLEBUTTON, [this, mode](wxCommandEvent&) { SetViewMode(mode); });
        add(button);
        return button;
    };
    bFitToWindow = addMode(0, "Fit To Window", "bViewFitToWindow");
    bActualSize = addMode(1, "Actual Size", "bViewActualSize");
    add(NewButton(this, "View Mode", "View Mode", "bViewNext", &TfMainCalendar::aViewNextExecute));
    return row;
}

wxWindow* TfMainCalendar::BuildPages()
{
    auto* pages = new wxNotebook(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "pcCalendar");
    SetAccessibleName(*pages, "Settings of the calendar");
    AddPage(*pages, BuildSizePage(pages), "&Size");
    AddPage(*pages, BuildFeaturesPage(pages), "&Features");
    AddPage(*pages, BuildBlendingPage(pages), "&Blending");
    // As wide as the widest page with its scroll bar.
    wxSize size;
    for (std::size_t i = 0; i < pages->GetPageCount(); ++i)
        size.IncTo(wxSize(pages->GetPage(i)->GetSizer()->CalcMin().x, 0));
    size = pages->CalcSizeFromPage(size + FromDIP(wxSize(28, 0)));
    pages->SetMinSize(wxSize(size.x, FromDIP(360)));
    return pages;
}

wxSizer* TfMainCalendar::NewRow(wxWindow* parent, const wxString& caption, wxWindow* control)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticText(parent, wxID_ANY, caption), wxSizerFlags(1).CenterVertical());
    row->Add(control, wxSizerFlags().CenterVertical().Border(wxLEFT));
    SetAccessibleName(*control, caption);
    return row;
}

wxSpinCtrl* TfMainCalendar::NewSizeEdit(wxWindow* parent, int minimum, int maximum,
                                        const wxString& name)
{
    return new wxSpinCtrl(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxSP_ARROW_KEYS,
                          minimum, maximum, minimum, name);
}

wxSlider* TfMainCalendar::NewPositionBar(wxWindow* parent, const wxString& caption,
                                         const wxString& name, int TCalendarSettings::*value)
{
    auto* bar = new wxSlider(parent, wxID_ANY, 0, 0, 100, wxDefaultPosition, wxDefaultSize,
                             wxSL_HORIZONTAL | wxSL_AUTOTICKS, wxDefaultValidator, name);
    bar->SetTickFreq(PositionTicks);
    bar->SetPageSize(PositionTicks);
    SetAccessibleName(*bar, caption);
    bar->Bind(wxEVT_SLIDER, [this, bar, value](wxCommandEvent&) {
        int& present = m_calendar.Settings.*value;
        if (m_isShowing || present == bar->GetValue())
            return;
        present = bar->GetValue();
        aRenderExecute();
    });
    return bar;
}

wxWindow* TfMainCalendar::BuildSizePage(wxWindow* parent)
{
    auto* page = NewPage(parent, "tsSize");
    seCalendarWidth = NewSizeEdit(page, MinimumWidth, MaximumWidth, "seCalendarWidth");
    seCalendarHeight = NewSizeEdit(page, MinimumHeight, MaximumHeight, "seCalendarHeight");
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(NewRow(page, "Width", seCalendarWidth), wxSizerFlags().Expand());
    rows->Add(NewRow(page, "Height", seCalendarHeight), wxSizerFlags().Expand().Border(wxTOP));
    auto* group = new wxStaticBoxSizer(wxVERTICAL, page, "Position");
    wxWindow* box = group->GetStaticBox();
    tbXPos = NewPositionBar(box, "From the left", "tbXPos", &TCalendarSettings::CalendarX);
    tbYPos = NewPositionBar(box, "From the top", "tbYPos", &TCalendarSettings::CalendarY);
    group->Add(new wxStaticText(box, wxID_ANY, "From the left"), wxSizerFlags().Border());
    group->Add(tbXPos, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT));
    group->Add(new wxStaticText(box, wxID_ANY, "From the top"), wxSizerFlags().Border());
    group->Add(tbYPos, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM));
    rows->Add(group, wxSizerFlags().Expand().DoubleBorder(wxTOP));
    return Finish(page, rows);
}

wxWindow* TfMainCalendar::BuildFeaturesPage(wxWindow* parent)
{
    auto* page = NewPage(parent, "tsFeatures");
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(BuildTitleGroup(page), wxSizerFlags().Expand());
    rows->Add(BuildFontGroup(page), wxSizerFlags().Expand().DoubleBorder(wxTOP));
    rows->Add(BuildBorderGroup(page), wxSizerFlags().Expand().DoubleBorder(wxTOP));
    if (m_hasBackgroundFile)
        rows->Add(BuildBackgroundGroup(page), wxSizerFlags().Expand().DoubleBorder(wxTOP));
    return Finish(page, rows);
}

// A font and its colour: not every system's font dialog has a colour.
wxSizer* TfMainCalendar::NewFontRow(wxWindow* parent, const wxString& caption, const wxString& name,
                                    TMuFont TCalendarSettings::*font)
{
    auto* button = new wxButton(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0,
                                wxDefaultValidator, "b" + name);
    button->SetToolTip(caption);
    button->Bind(wxEVT_BUTTON,
                 [this, font, caption](wxCommandEvent&) { aFontExecute(font, caption); });
    auto* picker =
        new wxColourPickerCtrl(parent, wxID_ANY, *wxBLACK, wxDefaultPosition, wxDefaultSize,
                               wxCLRP_DEFAULT_STYLE, wxDefaultValidator, "cp" + name);
    picker->SetToolTip(caption + " Color");
    SetAccessibleName(*picker, caption + " Color");
    picker->Bind(wxEVT_COLOURPICKER_CHANGED, [this, font](wxColourPickerEvent& event) {
        (m_calendar.Settings.*font).Color = FromWxColour(event.GetColour());
        aRenderExecute();
    });
    m_fontColors.push_back({picker, font});
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(button, wxSizerFlags(1).CenterVertical());
    row->Add(picker, wxSizerFlags().CenterVertical().Border(wxLEFT));
    return row;
}

wxSizer* TfMainCalendar::BuildTitleGroup(wxWindow* page)
{
    auto* group = new wxStaticBoxSizer(wxVERTICAL, page, "Title");
    wxWindow* box = group->GetStaticBox();
    wxArrayString formats;
    for (const char* format : TitleFormats)
        formats.Add(format);
    cbTitleFormat = new wxComboBox(box, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, formats,
                                   wxCB_DROPDOWN, wxDefaultValidator, "cbTitleFormat");
    group->Add(NewRow(box, "Format", cbTitleFormat), wxSizerFlags().Expand().Border());
    group->Add(NewFontRow(box, "Title Font", "TitleFont", &TCalendarSettings::TitleFont),
               wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM));
    return group;
}

wxSizer* TfMainCalendar::BuildFontGroup(wxWindow* page)
{
    auto* group = new wxStaticBoxSizer(wxVERTICAL, page, "Days");
    wxWindow* box = group->GetStaticBox();
    group->Add(
        NewFontRow(box, "Day Heading Font", "DayHeadingFont", &TCalendarSettings::DayHeadingFont),
        wxSizerFlags().Expand().Border());
    group->Add(NewFontRow(box, "Day Font", "DayFont", &TCalendarSettings::DayFont),
               wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM));
    return group;
}

wxSizer* TfMainCalendar::BuildBorderGroup(wxWindow* page)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    cbBorders = new wxCheckBox(page, wxID_ANY, "Borders", wxDefaultPosition, wxDefaultSize, 0,
                               wxDefaultValidator, "cbBorders");
    cbBorders->SetToolTip("Borders");
    cbBorders->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { aBordersExecute(); });
    pBorderColor = NewSwatch(page, wxSize(32, 24), "pBorderColor");
    row->Add(cbBorders, wxSizerFlags(1).CenterVertical());
    row->Add(NewButton(page, "Border Color", "Border Color", "bBorderColor",
                       &TfMainCalendar::aBorderColorExecute),
             wxSizerFlags().CenterVertical().Border(wxLEFT));
    row->Add(pBorderColor, wxSizerFlags().CenterVertical().Border(wxLEFT));
    return row;
}

wxSizer* TfMainCalendar::BuildBackgroundGroup(wxWindow* page)
{
    auto* group = new wxStaticBoxSizer(wxHORIZONTAL, page, "Background File");
    wxWindow* box = group->GetStaticBox();
    eBackground = new wxTextCtrl(box, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_READONLY,
                                 wxDefaultValidator, "eBackground");
    SetAccessibleName(*eBackground, "Background File");
    auto* browse = new wxButton(box, wxID_ANY, "...", wxDefaultPosition, wxDefaultSize,
                                wxBU_EXACTFIT, wxDefaultValidator, "bBackgroundFile");
    browse->SetToolTip("Background File");
    browse->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { aBackgroundFileExecute(); });
    SetAccessibleName(*browse, "Browse");
    group->Add(eBackground, wxSizerFlags(1).CenterVertical().Border());
    group->Add(browse, wxSizerFlags().CenterVertical().Border(wxTOP | wxRIGHT | wxBOTTOM));
    return group;
}

wxSizer* TfMainCalendar::BuildArea(wxWindow* page, std::size_t index)
{
    const TAreaRow& row = AreaTable[index];
    TBlendingArea& area = m_areas[index];
    auto* group = new wxStaticBoxSizer(wxHORIZONTAL, page, row.Caption);
    area.Box = group->GetStaticBox();
    area.Tint = row.Tint;
    area.Bars = new TChannelBars(area.Box, row.Caption, BlendingRange, row.Bars, false);
    area.Bars->ShowChannels(false);
    area.Bars->OnChange = [this, &area](TChannel channel, int value) {
        TTint& tint = m_calendar.Settings.*area.Tint;
        tint = WithChannel(tint, channel, value);
        aRenderExecute();
    };
    area.Advanced = new wxToggleButton(area.Box, wxID_ANY, "Advanced", wxDefaultPosition,
                                       wxDefaultSize, 0, wxDefaultValidator, row.Advanced);
    area.Advanced->SetToolTip("Advanced");
    SetAccessibleName(*area.Advanced, wxString(row.Caption) + ": Advanced");
    area.Advanced->Bind(wxEVT_TOGGLEBUTTON,
                        [this, &area](wxCommandEvent&) { aAdvancedExecute(area); });
    group->Add(area.Bars, wxSizerFlags(1).Border());
    group->Add(area.Advanced, wxSizerFlags().Top().Border(wxTOP | wxRIGHT | wxBOTTOM));
    return group;
}

wxWindow* TfMainCalendar::BuildBlendingPage(wxWindow* parent)
{
    auto* page = NewPage(parent, "tsBlending");
    auto* rows = new wxBoxSizer(wxVERTICAL);
    for (std::size_t area = 0; area < m_areas.size(); ++area)
        rows->Add(BuildArea(page, area), wxSizerFlags().Expand().Border(wxBOTTOM));
    return Finish(page, rows);
}

void TfMainCalendar::BuildPreview()
{
    sbCalendar = new wxScrolledWindow(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(420, 360)),
                                      wxHSCROLL | wxVSCROLL | wxBORDER_THEME, "sbCalendar");
    // Scrolls by pixels: with larger steps an empty strip would stay behind the picture's end.
    sbCalendar->SetScrollRate(1, 1);
    const auto scroll = [this](bool isAcross, int lines) {
        const wxPoint start = sbCalendar->GetViewStart();
        const int place = std::max((isAcross ? start.x : start.y) + lines * FromDIP(16), 0);
        sbCalendar->Scroll(isAcross ? place : wxDefaultCoord, isAcross ? wxDefaultCoord : place);
    };
    const auto scrollLine = [scroll](wxScrollWinEvent& event) {
        scroll(event.GetOrientation() == wxHORIZONTAL,
               event.GetEventType() == wxEVT_SCROLLWIN_LINEUP ? -1 : 1);
    };
    sbCalendar->Bind(wxEVT_SCROLLWIN_LINEUP, scrollLine);
    sbCalendar->Bind(wxEVT_SCROLLWIN_LINEDOWN, scrollLine);
    sbCalendar->Bind(wxEVT_MOUSEWHEEL, [scroll](wxMouseEvent& event) {
        const bool isAcross = event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL;
        const int lines = event.GetWheelRotation() * event.GetLinesPerAction() /
                          std::max(event.GetWheelDelta(), 1);
        scroll(isAcross, isAcross ? lines : -lines);
    });
    iCalendar = new TCalendarImage(sbCalendar, "iCalendar");
    SetAccessibleName(*sbCalendar, "Calendar");
}

wxSizer* TfMainCalendar::BuildBottom()
{
    auto* text =
        new wxStaticText(this, wxID_ANY,
                         "Click Ok to save the current changes. Click Cancel or close (x) "
                         "to cancel the current changes.",
                         wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END, "pStatusText");
    auto* ok = NewButton(this, "Ok", "Apply", "bOk", &TfMainCalendar::aOkExecute);
    ok->SetDefault();
    auto* cancel = new wxButton(this, wxID_CANCEL, "Cancel", wxDefaultPosition, wxDefaultSize, 0,
                                wxDefaultValidator, "bCancel");
    cancel->SetToolTip("Exit");
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(text, wxSizerFlags(1).CenterVertical());
    row->Add(ok, wxSizerFlags().CenterVertical().Border(wxLEFT));
    row->Add(cancel, wxSizerFlags().CenterVertical().Border(wxLEFT));
    return row;
}

void TfMainCalendar::BindEvents()
{
    seCalendarWidth->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent& event) {
        WidthTyped(wxString::Format("%d", event.GetPosition()));
    });
    seCalendarWidth->Bind(wxEVT_TEXT,
                          [this](wxCommandEvent& event) { WidthTyped(event.GetString()); });
    seCalendarHeight->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent& event) {
        HeightTyped(wxString::Format("%d", event.GetPosition()));
    });
    seCalendarHeight->Bind(wxEVT_TEXT,
                           [this](wxCommandEvent& event) { HeightTyped(event.GetString()); });
    cbTitleFormat->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { TitleFormatChanged(); });
    cbTitleFormat->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent&) { TitleFormatChanged(); });
    sbCalendar->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        if (m_editor.ViewMode == 0)
            SetViewMode(m_editor.ViewMode);
    });
    iCalendar->OnDropped = [this](TCalendarView::TPlace place) {
        m_calendar.Settings.CalendarX = place.X;
        m_calendar.Settings.CalendarY = place.Y;
        ShowSettings();
        aRenderExecute();
    };
}

} // namespace murala
