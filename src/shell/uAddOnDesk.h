// The add-ons: switching them, their settings, and drawing them onto the composed picture.
#pragma once

#include "uActionList.h"
#include "uCompose.h"
#include "uStorage.h"

#include <span>
#include <string>

namespace murala
{

struct TAddOn {
    std::string_view Caption;
    std::string_view Name; // within a sentence
    TActionId Switch, Options;
    bool TAddOnSwitches::*Use;
    // Whether the preview shows it, too. Icons lie on the desktop, not on a preview.
    bool IsInPreview;
    // What it needs is read each time that it draws. May throw std::runtime_error.
    void (*Draw)(TBitmap& picture, const TCore& core);
    // Why it would draw nothing now; empty where it can. Null: it always can.
    std::string (*Problem)(const TCore& core);
};

// In the order in which they are drawn.
std::span<const TAddOn> AddOnList();

class TAddOnDesk
{
public:
    TAddOnDesk(TCore& core, TStorage& storage) : m_core(core), m_storage(storage) {}

    // What is switched shows in the preview at once, on the desktop with the next wallpaper.
    void Switch(bool TAddOnSwitches::*use, bool on);
    void SetIconBox(const TIconBoxSettings& settings);
    // Another calendar was saved.
    void CalendarChanged() { Changed(); }
    // Of all add-ons, a line each; empty where all can be drawn.
    std::string Problems() const;

private:
    void Changed();

    TCore& m_core;
    TStorage& m_storage;
};

// Draws those that are switched on. One that fails is left out, and `problem` says why. Both
// arguments must live as long as what is returned.
TBeforeSave AddOnsForDesktop(const TCore& core, std::string& problem);
TBeforeSave AddOnsForPreview(const TCore& core, std::string& problem);

} // namespace murala
