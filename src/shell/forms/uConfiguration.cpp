#include "uConfiguration.h"

#include "uCallLater.h"
#include "uDialog.h"
#include "uWallpaperSchedule.h"
#include "uWindowSystem.h"
#include "uWxText.h"

#include <algorithm>

#include <wx/dc.h>
#include <wx/grid.h>
#include <wx/hyperlink.h>
#include <wx/panel.h>
#include <wx/settings.h>
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

// Makes blanks visible, and says where a text is replaced by nothing.
class TReplacementRenderer : public wxGridCellStringRenderer
{
public:
    void Draw(wxGrid& grid, wxGridCellAttr& attributes, wxDC& dc, const wxRect& rect, int row,
              int column, bool isSelected) override
    {
        wxGridCellRenderer::Draw(grid, attributes, dc, rect, row, column, isSelected);
        wxString text = grid.GetCellValue(row, column);
        const bool isNothing = text.empty() && column == 1 && !grid.GetCellValue(row, 0).empty();
        text.Replace(" ", wxUniChar(0x00B7)); // a middle dot
        SetTextColoursAndFont(grid, attributes, dc, isSelected);
        if (isNothing && !isSelected)
            dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
        grid.DrawTextRectangle(dc, isNothing ? wxString("(nothing)") : text,
                               wxRect(rect).Deflate(1), wxALIGN_LEFT, wxALIGN_CENTRE);
    }
    wxGridCellRenderer* Clone() const override { return new TReplacementRenderer; }
};

} // namespace

TConvertGrid::TConvertGrid(wxWindow* parent, const TConvertList& list)
    : m_grid(new wxGrid(parent, wxID_ANY, wxDefaultPosition, parent->FromDIP(wxSize(340, 190)),
                        wxWANTS_CHARS | wxBORDER_THEME, "sgConvertList"))
{
    m_grid->CreateGrid(std::max<int>(1, static_cast<int>(list.size())), 2);
    m_grid->SetDefaultRenderer(new TReplacementRenderer); // which the grid owns
    m_grid->SetCellHighlightPenWidth(2);
    m_grid->SetCellHighlightColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    m_grid->SetColLabelValue(0, "From");
    m_grid->SetColLabelValue(1, "To");
    m_grid->HideRowLabels();
    m_grid->Bind(wxEVT_SIZE, [grid = m_grid](wxSizeEvent& event) {
        event.Skip();
        for (int column = 0; column < 2; ++column)
            grid->SetColSize(column, grid->GetClientSize().x / 2);
    });
    for (int row = 0; row < static_cast<int>(list.size()); ++row) {
        m_grid->SetCellValue(row, 0, ToWx(list[static_cast<std::size_t>(row)].first));
        m_grid->SetCellValue(row, 1, ToWx(list[static_cast<std::size_t>(row)].second));
    }
    const wxString hint = "Move to the bottom of the list and press the\r\n"
                          "down arrow key to add a new entry to the list.";
    m_grid->SetToolTip(hint);
    m_grid->GetGridWindow()->SetToolTip(hint);
    for (wxWindow* window : {static_cast<wxWindow*>(m_grid), m_grid->GetGridWindow()})
        SetAccessibleName(*window, "Titles: replace From by To");
    m_grid->Bind(wxEVT_KEY_DOWN, &TConvertGrid::OnKey, this);
}

wxWindow* TConvertGrid::Window() const
{
    return m_grid;
}

void TConvertGrid::OnKey(wxKeyEvent& event)
{
    const int last = m_grid->GetNumberRows() - 1;
    const bool isAtEnd = m_grid->GetGridCursorRow() == last;
    const bool isDown = event.GetKeyCode() == WXK_DOWN && event.GetModifiers() == wxMOD_NONE;
    // In and out of the grid as of any other control.
    if (event.GetKeyCode() == WXK_TAB)
        return static_cast<void>(
            m_grid->Navigate(event.ShiftDown() ? 0 : wxNavigationKeyEvent::IsForward));
    if (!isAtEnd || !isDown)
        return event.Skip();
    if (m_grid->GetCellValue(last, 0).empty())
        return;
    m_grid->AppendRows();
    m_grid->GoToCell(last + 1, 0);
}

TConvertList TConvertGrid::List() const
{
    m_grid->DisableCellEditControl(); // takes what is being typed
    TConvertList list;
    for (int row = 0; row < m_grid->GetNumberRows(); ++row)
        if (const wxString from = m_grid->GetCellValue(row, 0); !from.empty())
            list.emplace_back(from.utf8_string(), m_grid->GetCellValue(row, 1).utf8_string());
    return list;
}

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
    // Asking the disk for every file takes a moment: when the page is looked at.
    pages->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this, pages, thumbnails](wxBookCtrlEvent& event) {
        event.Skip();
        if (pages->GetCurrentPage() == thumbnails)
            CallLater(*this, [this] { ShowStatistics(); });
    });
    FinishDialog(*this, pages);
    UpdateStartBoxes();
}

wxCheckBox* TfConfiguration::NewCheckBox(wxWindow* parent, wxSizer* rows, const wxString& caption,
                                         const wxString& name, bool value)
{
    auto* box = new wxCheckBox(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0,
                               wxDefaultValidator, name);
    box->SetValue(value);
    rows->Add(box, wxSizerFlags().Border(wxBOTTOM));
    return box;
}

wxWindow* TfConfiguration::BuildStartPage(wxWindow* parent)
{
    wxWindow* page = NewPage(parent, "tsStartup");
    auto* rows = new wxBoxSizer(wxVERTICAL);
    const auto add = [&](TActionId action, const char* name, bool value) {
        return NewCheckBox(page, rows, ToWx(m_actions[action].Caption), name, value);
    };
    const TMuSettings& settings = m_configuration.Settings;
    cbStartAtStartup = add(aStartAtStartup, "cbStartAtStartup", m_configuration.StartAtStartup);
    cbApplyAtStartup = add(aApplyOnStartup, "cbApplyAtStartup", settings.ApplyOnStartup);
    cbNextAtStartup = add(aNextOnStartup, "cbNextAtStartup", settings.NextOnStartup);
    rows->AddSpacer(FromDIP(12));
    cbShellIntegration = NewCheckBox(
        page, rows, "Use She&ll Integration (\"Add to Murala\" on popup menu in explorer)",
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
                               ToWx(LastChangeText(m_configuration.Settings.LastChangeDate))),
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
    TMuSettings& settings = m_configuration.Settings;
    TfSchedule dialog(this, ScheduleOf(settings), settings.LastChangeDate);
    if (dialog.ShowModal() == wxID_OK)
        SetScheduleOf(settings, dialog.Schedule());
    ShowSchedule();
}

void TfConfiguration::ShowSchedule()
{
    lSchedule->SetLabel(ToWx(DescribeSchedule(ScheduleOf(m_configuration.Settings))));
    lSchedule->GetParent()->Layout();
}

wxWindow* TfConfiguration::BuildTitlesPage(wxWindow* parent)
{
    wxWindow* page = NewPage(parent, "tsTitles");
    const TTitleRules& titles = m_configuration.Settings.Titles;
    auto* rows = new wxBoxSizer(wxVERTICAL);
    cbCapitaliseFirstLetter = NewCheckBox(page, rows, "Capitalise &First Letter",
                                          "cbCapitaliseFirstLetter", titles.CapitaliseFirstLetter);
    cbSpaceOutWords =
        NewCheckBox(page, rows, "S&pace Out Words", "cbSpaceOutWords", titles.SpaceOutWords);
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
    const TMuSettings& settings = m_configuration.Settings;
    auto* rows = new wxBoxSizer(wxVERTICAL);
    cbUseWallpaperCategories =
        NewCheckBox(page, rows, "&Group wallpapers by category in the tray menu",
                    "cbUseWallpaperCategories", settings.UseWallpaperCategories);
    cbStickyEdges = NewCheckBox(page, rows, "The window snaps to the &edges of the screen",
                                "cbStickyEdges", settings.StickyEdges);
    cbStickyEdges->Enable(IsAskedWhileDragging());
    if (!IsAskedWhileDragging())
        cbStickyEdges->SetToolTip("The window manager moves windows here, and snaps them.");
    rows->AddSpacer(FromDIP(12));
    cbRefreshIcons = NewCheckBox(page, rows, "Perodically &Refresh Icons", "cbRefreshIcons",
                                 settings.RefreshIcons);
    cbRefreshIcons->SetToolTip(
        "Sometimes Windows causes transparent icons to revert back to opaque. \r\n"
        "Use this option to refresh the transparent icons every few seconds");
    cbDefaultTransparentIcons =
        NewCheckBox(page, rows, "&Icons Are Transparent By Default", "cbDefaultTransparentIcons",
                    settings.DefaultTransparentIcons);
    cbDefaultTransparentIcons->SetToolTip("Sets transparent icons when a new wallapper is added");
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
    // The blanks in front line nothing up in letters of different widths.
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

// A length from the settings that the control cannot show stays, unless the user sets another one.
int TfConfiguration::MaxTitleLength() const
{
    const int stored = m_configuration.Settings.Titles.MaxTitleLength;
    const int shown = seMaxTitleLength->GetValue();
    return shown == std::clamp(stored, 1, MaximumTitleLength) ? stored : shown;
}

TConfiguration TfConfiguration::Configuration() const
{
    TConfiguration configuration = m_configuration;
    configuration.StartAtStartup = cbStartAtStartup->GetValue();
    configuration.ShellIntegration = cbShellIntegration->GetValue();
    configuration.Retitle = static_cast<TRetitle>(cbRetitle->GetSelection());
    TMuSettings& settings = configuration.Settings;
    settings.ApplyOnStartup = cbApplyAtStartup->GetValue();
    settings.NextOnStartup = cbNextAtStartup->GetValue();
    settings.Titles = {cbCapitaliseFirstLetter->GetValue(), cbSpaceOutWords->GetValue(),
                       MaxTitleLength(), sgConvertList->List()};
    settings.UseWallpaperCategories = cbUseWallpaperCategories->GetValue();
    settings.StickyEdges = cbStickyEdges->GetValue();
    settings.RefreshIcons = cbRefreshIcons->GetValue();
    settings.DefaultTransparentIcons = cbDefaultTransparentIcons->GetValue();
    return configuration;
}

} // namespace murala
