// The content of the main window: the wallpapers on the left, the preview above the settings on the
// right, and the bottom panel.
#pragma once

#include "uBottomPanel.h"
#include "uPreviewPanel.h"
#include "uWallpaperPanel.h"

#include <string_view>
#include <vector>

#include <wx/notebook.h>
#include <wx/splitter.h>

namespace murala
{

class TAddOnsPage;
class TSettingsPage;

class TMainPanel : public wxPanel
{
public:
    TMainPanel(wxWindow* parent, TMurala& murala, TActionList& actions, TActionBinder& binder);

    // The size of a first start: the list with its first columns beside pages that are not cut.
    wxSize DesignSize() const;
    // Makes the pages that are not seen at first; they take as long as all the rest.
    void BuildUnseen();
    // Gives the preview the size that the settings say, and the pages below it the width that they
    // need.
    void FitRightPanel();
    // To be called when the window has other dots an inch.
    void MeasureAnew(int oldDpi, int newDpi);

    TWallpaperPanel& Wallpapers() { return *m_wallpapers; }
    TPreviewPanel& Preview() { return *iPreview; }
    TBottomPanel& Bottom() { return *m_bottom; }
    // The action that opens the options of the add-on selected on its page.
    TActionId AddOnOptions() const;
    // The name of the help's page about what has the focus.
    std::string_view HelpPage() const;

private:
    wxWindow* BuildRightPanel(wxWindow* parent);
    void BindPreview();
    void BindSplitters();
    void MeasurePages();
    void PlaceSplitters();

    TMurala& m_murala;
    TActionList& m_actions;
    TActionBinder& m_binder;
    wxSplitterWindow* spVertical = nullptr;
    wxSplitterWindow* spHorizontal = nullptr;
    TWallpaperPanel* m_wallpapers = nullptr;
    TPreviewPanel* iPreview = nullptr;
    wxNotebook* pcEffect = nullptr;
    std::vector<TSettingsPage*> m_pages; // of pcEffect
    TAddOnsPage* m_addOnsPage = nullptr;
    TBottomPanel* m_bottom = nullptr;
    wxSize m_pagesSize; // what the largest page needs
    int m_rightWidth = 0, m_previewHeight = 0;
};

} // namespace murala
