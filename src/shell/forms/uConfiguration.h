// The configuration dialog: edits a copy of the settings that it owns.
#pragma once

#include "uActionList.h"
#include "uConvertGrid.h"
#include "uMurala.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/notebook.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>

namespace murala
{

class TfConfiguration : public wxDialog
{
public:
    TfConfiguration(wxWindow* parent, TMurala& murala, const TActionList& actions);

    // What the user has made of it.
    const TConfiguration& Configuration();

private:
    wxWindow* BuildStartPage(wxWindow* parent);
    wxWindow* BuildSchedulePage(wxWindow* parent);
    wxWindow* BuildTitlesPage(wxWindow* parent);
    wxWindow* BuildWallpapersPage(wxWindow* parent);
    wxWindow* BuildThumbnailsPage(wxWindow* parent);
    // Below the others. The box shows the value; Configuration() takes it from there.
    wxCheckBox* AddBox(wxWindow* page, wxSizer* rows, const wxString& caption, const char* name,
                       bool& value);

    void UpdateStartBoxes();
    void bScheduleClick();
    void ShowSchedule();
    void ShowStatistics();
    void aDeleteThumbnailCacheExecute();
    void aRefreshThumbnailsExecute();

    TMurala& m_murala;
    const TActionList& m_actions;
    TConfiguration m_configuration; // what is edited
    std::vector<std::pair<wxCheckBox*, bool*>> m_boxes;

    wxCheckBox *cbStartAtStartup = nullptr, *cbApplyAtStartup = nullptr, *cbNextAtStartup = nullptr;
    wxStaticText* lSchedule = nullptr;
    wxSpinCtrl* seMaxTitleLength = nullptr;
    std::unique_ptr<TConvertGrid> sgConvertList;
    wxChoice* cbRetitle = nullptr;
    wxStaticText *lSize = nullptr, *lShare = nullptr, *lCount = nullptr;
    wxButton* bDeleteThumbnailCache = nullptr;
};

} // namespace murala
