#include "uConfiguration.h"

#include "uCallLater.h"
#include "uDialog.h"
#include "uWallpaperSchedule.h"
#include "uWindowSystem.h"
#include "uWxText.h"

#include <algorithm>

#include <wx/hyperlink.h>
#include <wx/panel.h>
#include <wx/sizer.h>

namespace murala
{

namespace
{

constexpr int MaximumTitleLength = 255;

wxWindow* NewPage(wxWindow* parent, const wxString& name)
{
    return new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, name);
}

wxWindow* Finish(wxWindow* page, wxSizer* rows)
{
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(rows, wxSizerFlags(1).Expand().TripleBorder());
    page->SetSizer(frame);
    return page;
}

} // namespace

TfConfiguration::TfConfiguration(wxWindow* parent, TMurala& murala, const TActionList& actions)
    : wxDialog(parent, wxID_ANY, "Configuration", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "TfConfiguration"),
      m_murala(murala), m_actions(actions), m_configuration(murala.Configurator.Present())
{
    auto* pages = new wxNotebook(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "pcPages");
    SetAccessibleName(*pages, "Configuration");
    AddPage(*pages, BuildStartPage(pages), "Start&up");
    AddPage(*pages, BuildSchedulePage(pages), "Sc&hedule");
    AddPage(*pages, BuildTitlesPage(pages), "&Titles");
    AddPage(*pages, BuildWallpapersPage(pages), "&Wallpapers");
    wxWindow* thumbnails = BuildThumbnailsPage(pages);
    AddPage(*pages, thumbnails, "Thum&bnails");
    // Asking the disk for every thumbnail takes a moment, so it waits until the page is looked at.
    pages->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this, pages, thumbnails](wxBookCtrlEvent& event) {
        event.Skip();
        if (pages->GetCurrentPage() == thumbnails)
            CallLater(*this, [this] { ShowStatistics(); });
    });
    FinishDialog(*this, pages);
    UpdateStartBoxes();
}

wxCheckBox* TfConfiguration::AddBox(wxWindow* page, wxSizer* rows, const wxString& caption,
                                    const char* name, bool& value)
{
    auto* box = new wxCheckBox(page, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0,
                               wxDefaultValidator, name);
    box->SetValue(value);
    rows->Add(box, wxSizerFlags().Border(wxBOTTOM));
    m_boxes.emplace_back(box, &value);
    return box;
}

wxWindow* TfConfiguration::BuildStartPage(wxWindow* parent)
{
    wxWindow* page = NewPage(parent, "tsStartup");
    auto* rows = new wxBoxSizer(wxVERTICAL);
    const auto add = [&](TActionId action, const char* name, bool& value) {
        return AddBox(page, rows, ToWx(m_actions[action].Caption), name, value);
    };
    TPreferences& preferences = m_configuration.Preferences;
    cbStartAtStartup = add(aStartAtStartup, "cbStartAtStartup", m_configuration.StartAtStartup);
    cbApplyAtStartup = add(aApplyOnStartup, "cbApplyAtStartup", preferences.ApplyOnStartup);
    cbNextAtStartup = add(aNextOnStartup, "cbNextAtStartup", preferences.NextOnStartup);
    rows->AddSpacer(FromDIP(12));
    AddBox(page, rows, "Use She&ll Integration (\"Add to Murala\" on popup menu in explorer)",
           "cbShellIntegration", m_configuration.ShellIntegration);
    for (wxCheckBox* box : {cbStartAtStartup, cbApplyAtStartup})
        box->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { UpdateStartBoxes(); });
    return Finish(page, rows);
}

void TfConfiguration::UpdateStartBoxes()
{
    cbApplyAtStartup->Enable(cbStartAtStartup->GetValue());
    cbNextAtStartup->Enable(cbApplyAtStartup->IsEnabled() && cbApplyAtStartup->GetValue());
}

wxWindow* TfConfiguration::BuildSchedulePage(wxWindow* parent)
{
    wxWindow* page = NewPage(parent, "tsSchedule");
    auto* rows = new wxBoxSizer(wxVERTICAL);
    lSchedule =
        new wxStaticText(page, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lSchedule");
    rows->Add(lSchedule, wxSizerFlags().Expand().Border(wxBOTTOM));
    rows->Add(new wxStaticText(page, wxID_ANY,
                               ToWx(LastChangeText(m_murala.Core.Settings.Memory.LastChangeDate))),
              wxSizerFlags().DoubleBorder(wxBOTTOM));
    auto* button = new wxButton(page, wxID_ANY, "Wallpaper Sche&dule...", wxDefaultPosition,
                                wxDefaultSize, 0, wxDefaultValidator, "bSchedule");
    button->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { bScheduleClick(); });
    rows->Add(button);
    ShowSchedule();
    return Finish(page, rows);
}

void TfConfiguration::bScheduleClick()
{
    TfSchedule dialog(this, m_configuration.Schedule, m_murala.Core.Settings.Memory.LastChangeDate);
    if (dialog.ShowModal() == wxID_OK)
        m_configuration.Schedule = dialog.Schedule();
    ShowSchedule();
}

void TfConfiguration::ShowSchedule()
{
    lSchedule->SetLabel(ToWx(DescribeSchedule(m_configuration.Schedule)));
    lSchedule->GetParent()->Layout();
}

wxWindow* TfConfiguration::BuildTitlesPage(wxWindow* parent)
{
    wxWindow* page = NewPage(parent, "tsTitles");
    TTitleRules& titles = m_configuration.Preferences.Titles;
    auto* rows = new wxBoxSizer(wxVERTICAL);
    AddBox(page, rows, "Capitalise &First Letter", "cbCapitaliseFirstLetter",
           titles.CapitaliseFirstLetter);
    AddBox(page, rows, "S&pace Out Words", "cbSpaceOutWords", titles.SpaceOutWords);
    auto* length = new wxBoxSizer(wxHORIZONTAL);
    length->Add(new wxStaticText(page, wxID_ANY, "&Maximum Title Length"),
                wxSizerFlags().CenterVertical().Border(wxRIGHT));
    seMaxTitleLength =
        new wxSpinCtrl(page, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxSP_ARROW_KEYS, 1,
                       MaximumTitleLength, 40, "seMaxTitleLength");
    seMaxTitleLength->SetValue(std::clamp(titles.MaxTitleLength, 1, MaximumTitleLength));
    length->Add(seMaxTitleLength);
    length->Add(
        new wxStaticText(page, wxID_ANY, wxString::Format("letters, 1 to %d", MaximumTitleLength)),
        wxSizerFlags().CenterVertical().Border(wxLEFT));
    rows->Add(length, wxSizerFlags().DoubleBorder(wxBOTTOM));
    rows->Add(new wxStaticText(page, wxID_ANY, "&Replace in titles"),
              wxSizerFlags().Border(wxBOTTOM));
    sgConvertList = std::make_unique<TConvertGrid>(page, titles.ConvertList);
    rows->Add(sgConvertList->Window(), wxSizerFlags(1).Expand().DoubleBorder(wxBOTTOM));
    auto* retitle = new wxBoxSizer(wxHORIZONTAL);
    retitle->Add(new wxStaticText(page, wxID_ANY, "Make titles &anew of"),
                 wxSizerFlags().CenterVertical().Border(wxRIGHT));
    const wxString choices[] = {"no wallpaper", "the selected wallpapers", "all wallpapers"};
    cbRetitle = new wxChoice(page, wxID_ANY, wxDefaultPosition, wxDefaultSize, 3, choices, 0,
                             wxDefaultValidator, "cbRetitle");
    cbRetitle->SetSelection(0);
    retitle->Add(cbRetitle, wxSizerFlags().CenterVertical());
    rows->Add(retitle);
    return Finish(page, rows);
}

wxWindow* TfConfiguration::BuildWallpapersPage(wxWindow* parent)
{
    wxWindow* page = NewPage(parent, "tsWallpapers");
    TPreferences& preferences = m_configuration.Preferences;
    auto* rows = new wxBoxSizer(wxVERTICAL);
    AddBox(page, rows, "&Group wallpapers by category in the tray menu", "cbUseWallpaperCategories",
           preferences.UseWallpaperCategories);
    wxCheckBox* stickyEdges = AddBox(page, rows, "The window snaps to the &edges of the screen",
                                     "cbStickyEdges", preferences.StickyEdges);
    stickyEdges->Enable(IsAskedWhileDragging());
    if (!IsAskedWhileDragging())
        stickyEdges->SetToolTip("The window manager moves windows here, and snaps them.");
    rows->AddSpacer(FromDIP(12));
    AddBox(page, rows, "Perodically &Refresh Icons", "cbRefreshIcons", preferences.RefreshIcons)
        ->SetToolTip("Sometimes Windows causes transparent icons to revert back to opaque. \r\n"
                     "Use this option to refresh the transparent icons every few seconds");
    AddBox(page, rows, "&Icons Are Transparent By Default", "cbDefaultTransparentIcons",
           preferences.DefaultTransparentIcons)
        ->SetToolTip("Sets transparent icons when a new wallapper is added");
    if (!m_murala.Core.Services.IconView.CanBeAsked())
        rows->Add(new wxStaticText(page, wxID_ANY,
                                   "This desktop's icon text cannot be made transparent."),
                  wxSizerFlags().Border(wxTOP));
    return Finish(page, rows);
}

wxWindow* TfConfiguration::BuildThumbnailsPage(wxWindow* parent)
{
    wxWindow* page = NewPage(parent, "tsThumbnails");
    auto* rows = new wxBoxSizer(wxVERTICAL);
    auto* values = new wxFlexGridSizer(2, FromDIP(wxSize(12, 6)));
    const auto add = [&](const char* caption, const char* name) {
        values->Add(new wxStaticText(page, wxID_ANY, caption));
        auto* value = new wxStaticText(page, wxID_ANY, "Calculating...", wxDefaultPosition,
                                       wxDefaultSize, 0, name);
        values->Add(value);
        return value;
    };
    values->Add(new wxStaticText(page, wxID_ANY, "Thumbnail Folder"),
                wxSizerFlags().CenterVertical());
    const std::string folder = m_murala.Core.List.ThumbnailFolder;
    auto* mulFolder = new wxHyperlinkCtrl(page, wxID_ANY, ToWx(folder), "", wxDefaultPosition,
                                          wxDefaultSize, wxHL_ALIGN_LEFT, "mulFolder");
    AlignWithTexts(*mulFolder);
    mulFolder->SetToolTip("Explore the Thumbnail Folder");
    mulFolder->Bind(wxEVT_HYPERLINK, [this, folder](wxHyperlinkEvent&) {
        ShellExplore(m_murala.Core.Services.Launcher, folder);
    });
    values->Add(mulFolder, wxSizerFlags().CenterVertical());
    lSize = add("Size", "lSize");
    lShare = add("Share of the disk", "lShare");
    lCount = add("Thumbnails", "lCount");
    rows->Add(values, wxSizerFlags().Expand().TripleBorder(wxBOTTOM));
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    bDeleteThumbnailCache =
        new wxButton(page, wxID_ANY, "&Delete Thumbnails", wxDefaultPosition, wxDefaultSize, 0,
                     wxDefaultValidator, "bDeleteThumbnailCache");
    bDeleteThumbnailCache->Bind(wxEVT_BUTTON,
                                [this](wxCommandEvent&) { aDeleteThumbnailCacheExecute(); });
    buttons->Add(bDeleteThumbnailCache, wxSizerFlags().DoubleBorder(wxRIGHT));
    auto* refresh = new wxButton(page, wxID_ANY, "&Refresh Thumbnails", wxDefaultPosition,
                                 wxDefaultSize, 0, wxDefaultValidator, "bRefreshThumbnails");
    refresh->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { aRefreshThumbnailsExecute(); });
    buttons->Add(refresh);
    rows->Add(buttons);
    return Finish(page, rows);
}

void TfConfiguration::ShowStatistics()
{
    for (wxStaticText* value : {lSize, lShare, lCount}) {
        value->SetLabel("Calculating...");
        value->GetParent()->Layout();
        value->Update();
    }
    const TThumbnailStatistics statistics = m_murala.Configurator.ThumbnailStatistics();
    // The blanks in front would line numbers up only if all letters had the same width.
    lSize->SetLabel(ToWx(statistics.SizeText()).Trim(false));
    lShare->SetLabel(ToWx(statistics.ShareText()).Trim(false));
    lCount->SetLabel(ToWx(statistics.CountText()));
    lCount->GetParent()->Layout();
    bDeleteThumbnailCache->Enable(statistics.Count > 0);
}

void TfConfiguration::aDeleteThumbnailCacheExecute()
{
    m_murala.Configurator.DeleteThumbnailCache();
    ShowStatistics();
}

void TfConfiguration::aRefreshThumbnailsExecute()
{
    const wxBusyCursor busy;
    m_murala.Configurator.RefreshAllThumbnails();
    ShowStatistics();
}

const TConfiguration& TfConfiguration::Configuration()
{
    for (const auto& [box, value] : m_boxes)
        *value = box->GetValue();
    TTitleRules& titles = m_configuration.Preferences.Titles;
    // A length that the control cannot show stays, unless the user sets another one.
    if (seMaxTitleLength->GetValue() != std::clamp(titles.MaxTitleLength, 1, MaximumTitleLength))
        titles.MaxTitleLength = seMaxTitleLength->GetValue();
    titles.ConvertList = sgConvertList->List();
    m_configuration.Retitle = static_cast<TRetitle>(cbRetitle->GetSelection());
    return m_configuration;
}

} // namespace murala
