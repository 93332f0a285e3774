// The calendar and the icon box: switching them, their settings, and drawing them.
#pragma once

#include "uCompose.h"
#include "uStorage.h"

#include <string>

namespace murala
{

// The settings of the icon box that its dialog shows.
struct TIconBoxOptions {
    int Gamma = 128; // -255..255
    bool Border = false;
    bool OnlyIcons = false;
    TColor BorderColor = 0xFFFFFF;
};

class TAddOnDesk
{
public:
    TAddOnDesk(TCore& core, TStorage& storage) : m_core(core), m_storage(storage) {}

    // What is switched shows in the preview at once, on the desktop with the next wallpaper.
    void SetUseCalendar(bool use);
    void SetUseIconBox(bool use);
    TIconBoxOptions IconBox() const;
    void SetIconBox(const TIconBoxOptions& options);
    // Another calendar was saved.
    void CalendarChanged() { Changed(); }
    // Empty where the icon box can be drawn, else why not.
    std::string IconBoxProblem() const;

private:
    void Changed();

    TCore& m_core;
    TStorage& m_storage;
};

// What is drawn onto the composed picture. An add-on that cannot be drawn is left out, and
// `problem` says why; it must live as long as what is returned.
TBeforeSave AddOnsForDesktop(const TCore& core, std::string& problem);
TBeforeSave AddOnsForPreview(const TCore& core, std::string& problem);

} // namespace murala
