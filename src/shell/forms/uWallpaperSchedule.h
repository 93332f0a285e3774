// The dialog "Wallpaper Schedule".
#pragma once

#include "uSchedule.h"

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/timectrl.h>

namespace murala
{

class TfSchedule : public wxDialog
{
public:
    TfSchedule(wxWindow* parent, const TScheduleSettings& schedule, TDateTime lastChange);

    TScheduleSettings Schedule() const;

private:
    wxSizer* BuildFrequencyRow();
    wxSizer* BuildMomentRow();
    void ShowSchedule(const TScheduleSettings& schedule);
    void UpdateControls();

    wxCheckBox* cbUseSchedule;
    wxSpinCtrl* seFrequency = nullptr;
    wxChoice* cbUnits = nullptr;
    wxStaticText* lAt = nullptr;
    wxTimePickerCtrl* dtpAt = nullptr;
    wxStaticText* lOn = nullptr;
    wxChoice* cbOn = nullptr;
};

} // namespace murala
