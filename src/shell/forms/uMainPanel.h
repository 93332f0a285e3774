// What the main window is filled with: the wallpapers on the left, the preview above the settings
// on the right, and the bottom panel.
#pragma once

#include "uBottomPanel.h"
#include "uPreviewPanel.h"
#include "uWallpaperPanel.h"

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
    // Makes what is not seen at first, and takes as long as the rest of the window.
    void BuildUnseen();
    // Gives the preview its size of the settings, and the pages below it the width that they need.
    void FitRightPanel();
    // The toolkit has measured the controls for other dots an inch.
    void MeasureAnew(int oldDpi, int newDpi);

    TWallpaperPanel& Wallpapers() { return *m_wallpapers; }
    TPreviewPanel& Preview() { return *iPreview; }
    TBottomPanel& Bottom() { return *m_bottom; }
    // What the options of the add-on that is selected there are.
    TActionId AddOnOptions() const;

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
