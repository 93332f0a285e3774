// The configuration dialog: edits a copy of the settings.
#pragma once

#include "uActionList.h"
#include "uMurala.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/notebook.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>

class wxGrid;
class wxGridEvent;

namespace murala
{

// The convert list: "From" and "To". Down on the last row opens another one.
class TConvertGrid
{
public:
    TConvertGrid(wxWindow* parent, const TConvertList& list);
    wxWindow* Window() const;
    // Rows without a "From" are left out.
    TConvertList List() const;

private:
    void OnKey(wxKeyEvent& event);

    wxGrid* m_grid;
};

class TfConfiguration : public wxDialog
{
public:
    TfConfiguration(wxWindow* parent, TMurala& murala, const TActionList& actions);

    // What the user has made of it.
    TConfiguration Configuration() const;

private:
    wxWindow* BuildStartPage(wxWindow* parent);
    wxWindow* BuildSchedulePage(wxWindow* parent);
    wxWindow* BuildTitlesPage(wxWindow* parent);
    wxWindow* BuildWallpapersPage(wxWindow* parent);
    wxWindow* BuildThumbnailsPage(wxWindow* parent);
    wxCheckBox* NewCheckBox(wxWindow* parent, wxSizer* rows, const wxString& caption,
                            const wxString& name, bool value);

    void UpdateStartBoxes();
    int MaxTitleLength() const;
    void bScheduleClick();
    void ShowSchedule();
    void ShowStatistics();
    void aDeleteThumbnailCacheExecute();
    void aRefreshThumbnailsExecute();

    TMurala& m_murala;
    const TActionList& m_actions;
    TConfiguration m_configuration;

    wxCheckBox *cbStartAtStartup = nullptr, *cbApplyAtStartup = nullptr, *cbNextAtStartup = nullptr;
    wxCheckBox* cbShellIntegration = nullptr;
    wxStaticText* lSchedule = nullptr;
    wxCheckBox *cbCapitaliseFirstLetter = nullptr, *cbSpaceOutWords = nullptr;
    wxSpinCtrl* seMaxTitleLength = nullptr;
    std::unique_ptr<TConvertGrid> sgConvertList;
    wxChoice* cbRetitle = nullptr;
    wxCheckBox *cbUseWallpaperCategories = nullptr, *cbStickyEdges = nullptr;
    wxCheckBox *cbRefreshIcons = nullptr, *cbDefaultTransparentIcons = nullptr;
    wxStaticText *lSize = nullptr, *lShare = nullptr, *lCount = nullptr;
    wxButton* bDeleteThumbnailCache = nullptr;
};

} // namespace murala
