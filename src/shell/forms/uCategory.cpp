#include "uCategory.h"

#include "uDialog.h"
#include "uWindowSystem.h"
#include "uWxText.h"

#include <algorithm>

#include <wx/sizer.h>
#include <wx/stattext.h>

namespace murala
{

namespace
{
constexpr int TextWidth = 320; // DIPs
}

TfCategory::TfCategory(wxWindow* parent, const std::vector<std::string>& categories,
                       const std::string& present)
    : wxDialog(parent, wxID_ANY, "Wallpaper Category", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "TfCategory"),
      m_categories(categories)
{
    auto* text = new wxStaticText(
        this, wxID_ANY, "Choose a category from the list or type in a new category name.");
    text->Wrap(FromDIP(TextWidth));
    wxArrayString names;
    for (const std::string& category : categories)
        names.Add(ToWx(category));
    cbCategory =
        new wxComboBox(this, wxID_ANY, "", wxDefaultPosition, wxSize(FromDIP(TextWidth), -1), names,
                       wxCB_DROPDOWN, wxDefaultValidator, "cbCategory");
    SetAccessibleName(*cbCategory, "Category");
    const auto known = std::ranges::find(categories, present);
    if (known != categories.end())
        cbCategory->SetSelection(static_cast<int>(known - categories.begin()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(text, wxSizerFlags().Expand().DoubleBorder(wxBOTTOM));
    content->Add(cbCategory, wxSizerFlags().Expand());
    FinishDialog(*this, content, *cbCategory);
    cbCategory->SelectAll();
}

// A category that was chosen from the list keeps its exact bytes.
std::string TfCategory::Category() const
{
    const wxString text = cbCategory->GetValue();
    for (const std::string& category : m_categories)
        if (ToWx(category) == text)
            return category;
    return text.utf8_string();
}

} // namespace murala
