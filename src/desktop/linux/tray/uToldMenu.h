// What the desktops that draw a menu were told of it last. It does not change, so that it can be
// read aside.
#pragma once

#include "uFlatMenu.h"
#include "uGLib.h"

#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <vector>

namespace murala
{

class TToldMenu
{
public:
    explicit TToldMenu(TFlatMenu menu);
    // What is as it was keeps its number, also when the entries around it change: panels are slow
    // with new ones. What is not gets a number that nothing had before. Another revision if there
    // is any such change.
    TToldMenu Next(TFlatMenu menu) const;

    const TFlatMenu& Menu() const { return m_menu; }
    guint Revision() const { return m_revision; }
    std::optional<std::size_t> Find(gint32 number) const;
    // Of entries that were there before: the arguments of the signal ItemsPropertiesUpdated; null
    // when there is nothing to tell.
    GVariant* Changes(const TToldMenu& before) const;
    // The menus that were there before, with other entries.
    std::vector<gint32> MenusChanged(const TToldMenu& before) const;

    // They take the arguments and give the answer, null when there is no such entry.
    GVariant* GetLayout(GVariant* arguments) const;
    GVariant* GetGroupProperties(GVariant* arguments) const;
    GVariant* GetProperty(GVariant* arguments) const;
    // Desktops that make something of every entry before they go on are told the first entries of
    // those menus of a large one that were never shown. GNOME's extension asks for all of it
    // without the labels, and stands still for twenty seconds for ten thousand; those of Qt ask for
    // one menu after the other, all of them before the first one is seen. Empty menus would not
    // open, and GNOME looks whether one fits the screen before it asks. What that one is told the
    // properties of again it makes anew, closed.
    struct TOutline {
        std::set<gint32> Shown;
        std::set<gint32> Told; // with properties
    };
    bool IsForOutline(GVariant* arguments) const;
    GVariant* GetOutline(GVariant* arguments, TOutline& outline) const;
    // Whether that layout takes its time.
    bool IsLarge(GVariant* arguments) const;

private:
    using TNames = std::vector<std::string_view>;

    TToldMenu(TFlatMenu menu, std::vector<gint32> numbers, gint32 free, guint revision);
    void Keep(std::size_t i, const TFlatMenu& menu, std::size_t j,
              std::vector<gint32>& numbers) const;
    GVariant* PropertiesOf(std::size_t i, const TNames& wanted) const;
    // With an outline, of a menu that was not shown the first entries, `most` of them.
    GVariant* Layout(std::size_t i, int depth, const TNames& wanted, TOutline* outline = nullptr,
                     std::size_t most = 1) const;
    std::vector<gint32> EntriesOf(std::size_t i) const;
    GVariant* AnswerLayout(GVariant* arguments, TOutline* outline) const;
    GVariant* GroupProperties(std::span<const gint32> numbers, const TNames& wanted) const;

    TFlatMenu m_menu;
    std::vector<gint32> m_numbers;      // of the entries; the menu itself has 0
    std::vector<std::uint32_t> m_order; // the entries by their numbers
    gint32 m_free;                      // neither this one nor those above it were used
    guint m_revision;
};

// The numbers of an array, "ai".
std::vector<gint32> NumbersOf(GVariant* array);

} // namespace murala
