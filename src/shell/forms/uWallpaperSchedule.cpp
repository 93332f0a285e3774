#include "uWallpaperSchedule.h"

#include "uActionBinder.h"
#include "uDialog.h"

#include <algorithm>

namespace murala
{

namespace
{

constexpr int MaximumFrequency = 999;

template<std::size_t Count>
wxArrayString Names(const std::string_view (&names)[Count])
{
    wxArrayString result;
    for (const std::string_view name : names)
        result.Add(ToWx(name));
    return result;
}

} // namespace

TfSchedule::TfSchedule(wxWindow* parent, const TScheduleSettings& schedule, TDateTime lastChange)
    : wxDialog(parent, wxID_ANY, "Wallpaper Schedule", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE, "TfSchedule")
{
    cbUseSchedule = new wxCheckBox(this, wxID_ANY, "&Use Wallpaper Schedule", wxDefaultPosition,
                                   wxDefaultSize, 0, wxDefaultValidator, "cbUseSchedule");
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(cbUseSchedule, wxSizerFlags().DoubleBorder(wxBOTTOM));
    content->Add(BuildFrequencyRow(), wxSizerFlags().Expand().Border(wxBOTTOM));
    content->Add(BuildMomentRow(), wxSizerFlags().Expand().DoubleBorder(wxBOTTOM));
    content->Add(new wxStaticText(this, wxID_ANY, ToWx(LastChangeText(lastChange)),
                                  wxDefaultPosition, wxDefaultSize, 0, "lLastChange"));
    ShowSchedule(schedule);
    FinishDialog(*this, content, *cbUseSchedule);
    cbUseSchedule->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { UpdateControls(); });
    cbUnits->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { UpdateControls(); });
    seFrequency->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent&) { UpdateControls(); });
    seFrequency->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { UpdateControls(); });
}

wxSizer* TfSchedule::BuildFrequencyRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticText(this, wxID_ANY, "Automatically change wallpaper after"),
             wxSizerFlags().CenterVertical().Border(wxRIGHT));
    seFrequency = new wxSpinCtrl(this, wxID_ANY, "1", wxDefaultPosition, wxDefaultSize,
                                 wxSP_ARROW_KEYS, 1, MaximumFrequency, 1, "seFrequency");
    row->Add(seFrequency, wxSizerFlags().CenterVertical().Border(wxRIGHT));
    // Plural names are wider: the control is made for them.
    cbUnits = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                           Names(ScheduleUnitPluralNames), 0, wxDefaultValidator, "cbUnits");
    row->Add(cbUnits, wxSizerFlags().CenterVertical());
    return row;
}

wxSizer* TfSchedule::BuildMomentRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    lAt = new wxStaticText(this, wxID_ANY, "at");
    dtpAt = new wxTimePickerCtrl(this, wxID_ANY, wxDefaultDateTime, wxDefaultPosition,
                                 wxDefaultSize, wxTP_DEFAULT, wxDefaultValidator, "dtpAt");
    lOn = new wxStaticText(this, wxID_ANY, "on");
    cbOn = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, Names(WeekdayNames), 0,
                        wxDefaultValidator, "cbOn");
    row->Add(lAt, wxSizerFlags().CenterVertical().Border(wxRIGHT));
    row->Add(dtpAt, wxSizerFlags().CenterVertical().DoubleBorder(wxRIGHT));
    row->Add(lOn, wxSizerFlags().CenterVertical().Border(wxRIGHT));
    row->Add(cbOn, wxSizerFlags().CenterVertical());
    return row;
}

void TfSchedule::ShowSchedule(const TScheduleSettings& schedule)
{
    cbUseSchedule->SetValue(schedule.Use);
    seFrequency->SetValue(std::clamp(schedule.Frequency, 1, MaximumFrequency));
    cbUnits->SetSelection(std::clamp<int>(schedule.Units, suWeek, suMinute));
    const TDateParts time = DecodeDateTime(TimeOf(schedule.At));
    dtpAt->SetTime(time.Hour, time.Minute, time.Second);
    cbOn->SetSelection(std::clamp(schedule.On, 0, 6));
    UpdateControls();
}

void TfSchedule::UpdateControls()
{
    const bool isPlural = seFrequency->GetValue() > 1;
    for (unsigned unit = 0; unit < cbUnits->GetCount(); ++unit) {
        const wxString name =
            ToWx(isPlural ? ScheduleUnitPluralNames[unit] : ScheduleUnitNames[unit]);
        if (cbUnits->GetString(unit) != name)
            cbUnits->SetString(unit, name);
    }
    const bool isOn = cbUseSchedule->GetValue();
    const int unit = cbUnits->GetSelection();
    seFrequency->Enable(isOn);
    cbUnits->Enable(isOn);
    for (wxWindow* control : {static_cast<wxWindow*>(lAt), static_cast<wxWindow*>(dtpAt)})
        control->Enable(isOn && unit <= suDay);
    for (wxWindow* control : {static_cast<wxWindow*>(lOn), static_cast<wxWindow*>(cbOn)})
        control->Enable(isOn && unit == suWeek);
}

TScheduleSettings TfSchedule::Schedule() const
{
    int hour = 0, minute = 0, second = 0;
    dtpAt->GetTime(&hour, &minute, &second);
    const double seconds = hour * 3600.0 + minute * 60.0 + second;
    return {cbUseSchedule->GetValue(), seFrequency->GetValue(),
            static_cast<TScheduleUnits>(cbUnits->GetSelection()), seconds / SecondsPerDay,
            cbOn->GetSelection()};
}

} // namespace murala
