#include "uMainCalendar.h"

#include "uCompose.h"
#include "uDialog.h"
#include "uFileDialogs.h"
#include "uFileError.h"
#include "uPath.h"
#include "uPictureFile.h"
#include "uScopes.h"
#include "uShippedFile.h"
#include "uWindowSystem.h"
#include "uWxBitmap.h"
#include "uWxFont.h"
#include "uWxText.h"

#include <algorithm>

#include <wx/colordlg.h>
#include <wx/filedlg.h>
#include <wx/fontdlg.h>
#include <wx/msgdlg.h>

namespace murala
{

namespace
{

constexpr const char* SamplePlanet = "samples/Planet.jpg";

enum TCalendarViewMode : int { FitToWindow, ActualSize };

} // namespace

TfMainCalendar::TfMainCalendar(wxWindow* parent, const TServices& services,
                               std::optional<TBitmap> background)
    : wxDialog(parent, wxID_ANY, "Mu Calendar", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX, "TfMainCalendar"),
      m_services(services), m_calendar(services.Text, services.DateNames, services.Clock.Now()),
      m_hasBackgroundFile(!background)
{
    if (background)
        m_calendar.Picture = std::move(*background);
    Load();
    wxSizer* toolBar = BuildToolBar();
    auto* client = new wxBoxSizer(wxHORIZONTAL);
    client->Add(BuildPages(), wxSizerFlags().Expand());
    BuildPreview();
    client->Add(sbCalendar, wxSizerFlags(1).Expand().Border(wxLEFT));
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(toolBar, wxSizerFlags().Expand().Border());
    frame->Add(client, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT));
    frame->Add(BuildBottom(), wxSizerFlags().Expand().Border());
    ConnectMnemonics(*this);
    SetSizerAndFit(frame);
    SetMinSize(GetSize());
    BindEvents();
    if (m_hasBackgroundFile)
        LoadBackground();
    ShowSettings();
    Maximize();
    aRenderExecute();
    SetViewMode(m_editor.ViewMode);
    FocusFirst(*this, *seCalendarWidth);
}

void TfMainCalendar::Load()
{
    const TIniFile file = TIniFile::Load(JoinPath(m_services.ProgramFolder, CalendarFileName));
    m_calendar.Settings = LoadCalendarSettings(file, CalendarSection);
    m_editor = LoadCalendarEditorSettings(file, CalendarSection);
}

void TfMainCalendar::ShowSettings()
{
    const TValueScope showing(m_isShowing, true);
    const TCalendarSettings& settings = m_calendar.Settings;
    seCalendarWidth->SetValue(settings.CalendarWidth);
    seCalendarHeight->SetValue(settings.CalendarHeight);
    tbXPos->SetValue(settings.CalendarX);
    tbYPos->SetValue(settings.CalendarY);
    if (cbTitleFormat->GetValue() != ToWx(settings.TitleFormat))
        cbTitleFormat->SetValue(ToWx(settings.TitleFormat));
    cbBorders->SetValue(settings.CalendarBorders);
    pBorderColor->SetBackgroundColour(ToWxColour(settings.BorderColor));
    pBorderColor->Refresh();
    for (const TFontColor& each : m_fontColors)
        each.Picker->SetColour(ToWxColour((settings.*each.Font).Color));
    for (const TBlendingArea& area : m_areas)
        area.Bars->ShowTint(settings.*area.Tint);
}

// The file that the settings name; the sample planet when they name none.
std::optional<std::string> TfMainCalendar::BackgroundPath() const
{
    const std::string& name = m_editor.BackgroundFileName;
    std::optional<std::string> path;
    if (NativePath(name).is_absolute())
        path = IsReachableFile(name) ? std::optional(name) : std::nullopt;
    else if (!name.empty())
        path = FindShippedFile(m_services, name);
    return path ? path : FindShippedFile(m_services, SamplePlanet);
}

void TfMainCalendar::LoadBackground()
{
    eBackground->ChangeValue(ToWx(m_editor.BackgroundFileName));
    try {
        if (const auto path = BackgroundPath())
            m_calendar.Picture = LoadPictureFile(*path);
    } catch (const EInvalidImage& error) {
        CallAfter([this, text = std::string(error.what())] { ShowMessage(text); });
    }
    if (m_calendar.Picture.Width() > 0)
        return;
    const TSize screen = m_services.Desktop.ScreenSize();
    FillBackground(m_calendar.Picture, screen, m_services.Desktop.DesktopColor());
}

void TfMainCalendar::aRenderExecute()
{
    TBitmap picture;
    m_calendar.Render(picture);
    iCalendar->ShowPicture(std::move(picture), m_calendar.Settings, ShownSize());
}

TSize TfMainCalendar::ShownSize() const
{
    const TSize picture = m_calendar.Picture.Size();
    const wxSize client = sbCalendar->GetSize();
    return m_editor.ViewMode == FitToWindow ? FittedSize({client.x, client.y}, picture) : picture;
}

void TfMainCalendar::SetViewMode(int mode)
{
    m_editor.ViewMode = mode == FitToWindow ? FitToWindow : ActualSize;
    bFitToWindow->SetValue(m_editor.ViewMode == FitToWindow);
    bActualSize->SetValue(m_editor.ViewMode == ActualSize);
    const TSize size = ShownSize();
    iCalendar->ShowSize(size);
    sbCalendar->SetVirtualSize(size.Width, size.Height);
    if (m_editor.ViewMode == FitToWindow)
        sbCalendar->Scroll(0, 0);
}

void TfMainCalendar::aFontExecute(TMuFont TCalendarSettings::*font, const wxString& caption)
{
    TMuFont& present = m_calendar.Settings.*font;
    wxFontData preset;
    preset.SetInitialFont(ToWxFont(present));
    preset.SetColour(ToWxColour(present.Color));
    preset.EnableEffects(true);
    wxFontDialog dialog(this, preset);
    dialog.SetTitle(caption);
    if (dialog.ShowModal() != wxID_OK)
        return;
    present = FromWxFont(dialog.GetFontData(), present);
    ShowSettings();
    aRenderExecute();
}

void TfMainCalendar::aBackgroundFileExecute()
{
    wxFileDialog dialog(this, "Background File", "", "", OpenFilter(BackgroundFileKinds()),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (const auto path = BackgroundPath())
        dialog.SetDirectory(ToWx(FolderPart(*path)));
    if (dialog.ShowModal() != wxID_OK)
        return;
    const std::string path = dialog.GetPath().utf8_string();
    try {
        m_calendar.Picture = LoadPictureFile(path);
    } catch (const EInvalidImage& error) {
        return ShowMessage(error.what());
    }
    m_editor.BackgroundFileName = path;
    eBackground->ChangeValue(ToWx(path));
    aRenderExecute();
    SetViewMode(m_editor.ViewMode);
}

void TfMainCalendar::aSaveExecute()
{
    const auto path = AskWhereToSave(*this, "Save Image", "Bitmaps (*.bmp)|*.bmp", ".bmp");
    if (!path)
        return;
    try {
        SaveBitmapFile(iCalendar->Picture(), *path);
    } catch (const EFileError& error) {
        ShowMessage(error.what());
    }
}

void TfMainCalendar::aAdvancedExecute(TBlendingArea& area)
{
    area.Bars->ShowChannels(area.Advanced->GetValue());
    auto* page = dynamic_cast<wxScrolledWindow*>(area.Box->GetParent());
    page->Layout();
    page->FitInside();
}

void TfMainCalendar::aBordersExecute()
{
    m_calendar.Settings.CalendarBorders = !m_calendar.Settings.CalendarBorders;
    ShowSettings();
    aRenderExecute();
}

void TfMainCalendar::aBorderColorExecute()
{
    wxColourData preset;
    preset.SetChooseFull(true);
    preset.SetColour(ToWxColour(m_calendar.Settings.BorderColor));
    wxColourDialog dialog(this, &preset);
    if (dialog.ShowModal() != wxID_OK)
        return;
    m_calendar.Settings.BorderColor = FromWxColour(dialog.GetColourData().GetColour());
    ShowSettings();
    aRenderExecute();
}

// When saving fails the dialog stays open, so that nothing is lost.
void TfMainCalendar::aOkExecute()
{
    const std::string path = JoinPath(m_services.ProgramFolder, CalendarFileName);
    try {
        TIniFile file = TIniFile::Load(path);
        SaveCalendarEditorSettings(file, CalendarSection, m_editor, m_hasBackgroundFile);
        SaveCalendarSettings(file, CalendarSection, m_calendar.Settings);
        file.Save(path);
    } catch (const EFileError& error) {
        return ShowMessage(error.what());
    }
    EndModal(wxID_OK);
}

void TfMainCalendar::TitleFormatChanged()
{
    const std::string format = cbTitleFormat->GetValue().utf8_string();
    if (m_isShowing || format == m_calendar.Settings.TitleFormat)
        return;
    m_calendar.Settings.TitleFormat = format;
    aRenderExecute();
}

// The calendar is drawn in the new size when another control, or the user, asks for drawing.
void TfMainCalendar::WidthTyped(const wxString& text)
{
    long width = 0;
    int& stored = m_calendar.Settings.CalendarWidth;
    if (m_isShowing || !text.ToLong(&width))
        return;
    // The control corrects a width out of its range. Such a width, typed or from the file, stays in
    // the settings as it is.
    if (width == std::clamp(stored, seCalendarWidth->GetMin(), seCalendarWidth->GetMax()))
        return;
    stored = static_cast<int>(width);
    iCalendar->SetSettings(m_calendar.Settings);
}

void TfMainCalendar::HeightTyped(const wxString& text)
{
    long height = 0;
    if (m_isShowing || !text.ToLong(&height))
        return;
    m_calendar.Settings.CalendarHeight = static_cast<int>(
        std::clamp<long>(height, seCalendarHeight->GetMin(), seCalendarHeight->GetMax()));
    iCalendar->SetSettings(m_calendar.Settings);
}

void TfMainCalendar::ShowMessage(const std::string& text)
{
    wxMessageBox(ToWx(text), "Murala", wxOK | wxICON_INFORMATION | wxCENTRE, this);
}

} // namespace murala
