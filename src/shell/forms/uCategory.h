// The dialog "Wallpaper Category".
#pragma once

#include <string>
#include <vector>

#include <wx/combobox.h>
#include <wx/dialog.h>

namespace murala
{

class TfCategory : public wxDialog
{
public:
    // `present` is preselected when it is one of the categories.
    TfCategory(wxWindow* parent, const std::vector<std::string>& categories,
               const std::string& present);

    std::string Category() const;

private:
    std::vector<std::string> m_categories;
    wxComboBox* cbCategory;
};

} // namespace murala
