#include "uEmptyLibrary.h"

#include "uPictureFormats.h"
#include "uText.h"

#include <algorithm>

namespace murala
{

namespace
{

// Device-independent pixels.
constexpr int Margin = 16;
constexpr int WidestText = 380; // longer lines are hard to read
constexpr int ScrollStep = 10;

} // namespace

TEmptyLibrary::TEmptyLibrary(wxWindow* parent, TActionBinder& binder, bool hasSamples)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxScrolledWindowStyle | wxTAB_TRAVERSAL, "pEmptyLibrary")
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->AddStretchSpacer();
    AddText(*rows, "There are no wallpapers yet");
    m_texts.front().Control->SetFont(GetFont().Bold().Scaled(1.2F));
    AddText(*rows, "Murala shows your pictures on the desktop: the one that you choose, or one "
                   "after the other on a schedule.");
    AddText(*rows, ToWx(FormatText("Drag pictures (%s) here from the file manager, or choose them:",
                                   {PictureFormatNames()})));
    bAddPictures = binder.NewButton(this, aAdd, "bAddPictures");
    bAddPictures->SetLabel("Add &Pictures...");
    bAddPictures->SetToolTip("Choose pictures from your folders");
    rows->Add(bAddPictures, wxSizerFlags().CenterHorizontal().Border());
    if (hasSamples)
        rows->Add(binder.NewButton(this, aAddSamples, "bAddSamples"),
                  wxSizerFlags().CenterHorizontal().Border());
    AddText(*rows, "The pictures stay where they are, and your desktop stays as it is until you "
                   "apply one.");
    rows->AddStretchSpacer();
    SetSizer(rows);
    SetScrollRate(FromDIP(ScrollStep), FromDIP(ScrollStep));
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        WrapTexts();
    });
}

void TEmptyLibrary::AddText(wxSizer& rows, const wxString& text)
{
    auto* control = new wxStaticText(this, wxID_ANY, text, wxDefaultPosition, wxDefaultSize,
                                     wxALIGN_CENTRE_HORIZONTAL);
    rows.Add(control, wxSizerFlags().CenterHorizontal().Border(wxALL, FromDIP(Margin / 2)));
    m_texts.push_back({control, text});
}

// Also reckons with a scroll bar that is not there: its coming would wrap the texts anew, which
// could take it away again.
void TEmptyLibrary::WrapTexts()
{
    const int bar = wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this);
    const int room = GetSize().x - bar - FromDIP(2 * Margin);
    const int width = std::clamp(room, 1, FromDIP(WidestText));
    for (const TText& text : m_texts) {
        text.Control->SetLabel(text.Text);
        text.Control->Wrap(width);
    }
    FitInside();
    Layout();
}

} // namespace murala
