#include "uMainPanel.h"

#include "uAddOnsPage.h"
#include "uCallLater.h"
#include "uDesktopPage.h"
#include "uEffectPage.h"
#include "uTintPage.h"
#include "uWindowSystem.h"

#include <algorithm>
#include <utility>

#include <wx/dcclient.h>

namespace murala
{

namespace
{

// Device-independent pixels. The preview's are its panel's width and its own height, by
// TPreviewSize.
constexpr std::pair<int, int> PreviewSizes[] = {{140, 98}, {310, 226}, {620, 458}};
constexpr int DesignWidth = 650, DesignHeight = 492;
constexpr int SmallestPane = 180;

// Of the pages of pcEffect, in their order.
constexpr std::string_view HelpPages[] = {"desktop", "tint", "effect", "addons"};

// A splitter whose sash is painted only in a paint event, when it has its place.
class TSplitter : public wxSplitterWindow
{
public:
    using wxSplitterWindow::wxSplitterWindow;

private:
    void DrawSash(wxDC& dc) override
    {
        if (dc.IsKindOf(wxCLASSINFO(wxPaintDC)))
            wxSplitterWindow::DrawSash(dc);
    }
};

} // namespace

TMainPanel::TMainPanel(wxWindow* parent, TMurala& murala, TActionList& actions,
                       TActionBinder& binder)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "pMain"),
      m_murala(murala), m_actions(actions), m_binder(binder)
{
    spVertical = new TSplitter(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE,
                               "spVertical");
    spVertical->SetSashGravity(1); // a narrower window takes its width from the list
    m_wallpapers = new TWallpaperPanel(spVertical, murala, actions, binder);
    wxWindow* right = BuildRightPanel(spVertical);
    spVertical->SplitVertically(m_wallpapers, right, -m_pagesSize.x);
    m_bottom = new TBottomPanel(this, actions, binder);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(spVertical, wxSizerFlags(1).Expand());
    rows->Add(m_bottom, wxSizerFlags().Expand());
    SetSizer(rows);
    BindPreview();
    BindSplitters();
}

wxWindow* TMainPanel::BuildRightPanel(wxWindow* parent)
{
    spHorizontal = new TSplitter(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                 wxSP_LIVE_UPDATE, "spHorizontal");
    iPreview = new TPreviewPanel(spHorizontal, "iPreview");
    iPreview->SetToolTip("Right click for menu");
    pcEffect =
        new wxNotebook(spHorizontal, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "pcEffect");
    SetAccessibleName(*pcEffect, "Settings of the wallpaper");
    const auto addPage = [this](TSettingsPage* page, const char* caption) {
        m_pages.push_back(page);
        AddPage(*pcEffect, page, caption);
    };
    addPage(new TDesktopPage(pcEffect, m_murala, m_binder, m_actions), "&Desktop");
    addPage(new TTintPage(pcEffect, m_murala), "&Tint");
    addPage(new TEffectPage(pcEffect, m_murala), "&Effect");
    m_addOnsPage = new TAddOnsPage(pcEffect, m_murala, m_binder, m_actions);
    addPage(m_addOnsPage, "&Add Ons");
    m_pages.front()->Build();
    MeasurePages();
    spHorizontal->SplitHorizontally(iPreview, pcEffect, FromDIP(PreviewSizes[psNormal].second));
    return spHorizontal;
}

void TMainPanel::BindPreview()
{
    iPreview->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
        const std::unique_ptr<wxMenu> pmPreview(
            m_binder.NewMenu({aMiniSize, aNormalSize, aLargeSize}));
        const TPauseScope pause(m_murala.Core.Pauses);
        const bool byKey = event.GetPosition() == wxDefaultPosition;
        iPreview->PopupMenu(pmPreview.get(), byKey ? wxPoint() : wxDefaultPosition);
    });
    iPreview->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        if (!m_murala.Core.Updating)
            m_murala.Preview.PreviewChanged(false);
    });
    pcEffect->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
        event.Skip();
        TSettingsPage& page = *m_pages.at(static_cast<std::size_t>(event.GetSelection()));
        page.Build();
        page.Arrive();
    });
}

void TMainPanel::MeasurePages()
{
    wxSize size;
    for (const TSettingsPage* page : m_pages)
        size.IncTo(page->IsBuilt() ? page->GetSizer()->CalcMin() : page->LikelySize());
    // Some notebooks do not count their own borders.
    m_pagesSize = pcEffect->CalcSizeFromPage(size) + FromDIP(wxSize(12, 0));
    spVertical->SetMinimumPaneSize(FromDIP(SmallestPane));
    // Room for the smallest preview, and below it for tabs with a page that scrolls.
    spHorizontal->SetMinimumPaneSize(FromDIP(PreviewSizes[psMini].second));
}

void TMainPanel::BuildUnseen()
{
    for (TSettingsPage* page : m_pages)
        page->Build();
    MeasurePages();
    FitRightPanel();
}

wxSize TMainPanel::DesignSize() const
{
    wxSize content = m_pagesSize;
    content.IncTo(FromDIP(wxSize(PreviewSizes[psNormal].first, 0)));
    content += wxSize(std::max(FromDIP(340), m_wallpapers->ToolBarWidth() + FromDIP(8)),
                      FromDIP(PreviewSizes[psNormal].second + 120));
    content.IncTo(FromDIP(wxSize(DesignWidth, DesignHeight)));
    return content;
}

// When the window's size changes, the right panel keeps its width and the preview its height, as
// the user has set them.
void TMainPanel::BindSplitters()
{
    // The event also comes when a splitter moves its sash for lack of room.
    const auto isDragged = [] { return wxGetMouseState().LeftIsDown(); };
    spVertical->Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [=, this](wxSplitterEvent& event) {
        const int width = spVertical->GetClientSize().x;
        const int last = std::max(width - m_pagesSize.x, spVertical->GetMinimumPaneSize());
        event.SetSashPosition(std::min(event.GetSashPosition(), last));
        if (isDragged())
            m_rightWidth = width - event.GetSashPosition();
    });
    spHorizontal->Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [=, this](wxSplitterEvent& event) {
        if (isDragged())
            m_previewHeight = event.GetSashPosition();
    });
    for (wxSplitterWindow* splitter : {spVertical, spHorizontal})
        splitter->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
            event.Skip();
            CallLater(*this, [this] { PlaceSplitters(); });
        });
}

void TMainPanel::FitRightPanel()
{
    const auto size = std::clamp(m_murala.Core.Settings.Window.PreviewSize, psMini, psLarge);
    const wxSize preview = FromDIP(wxSize(PreviewSizes[size].first, PreviewSizes[size].second));
    m_rightWidth = std::max(preview.x, m_pagesSize.x);
    m_previewHeight = preview.y;
    PlaceSplitters();
}

void TMainPanel::PlaceSplitters()
{
    spVertical->SetSashPosition(-m_rightWidth);
    spHorizontal->SetSashPosition(m_previewHeight);
}

void TMainPanel::MeasureAnew(int oldDpi, int newDpi)
{
    m_rightWidth = newDpi * m_rightWidth / oldDpi;
    m_previewHeight = newDpi * m_previewHeight / oldDpi;
    CallLater(*this, [this] {
        MeasurePages();
        m_rightWidth = std::max(m_rightWidth, m_pagesSize.x);
        PlaceSplitters();
        m_murala.Preview.PreviewChanged(false);
    });
}

TActionId TMainPanel::AddOnOptions() const
{
    return m_addOnsPage->OptionsAction();
}

std::string_view TMainPanel::HelpPage() const
{
    if (!pcEffect->IsDescendant(FindFocus()))
        return "index";
    return HelpPages[pcEffect->GetSelection()];
}

} // namespace murala
