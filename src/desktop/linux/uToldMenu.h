// What the desktops that draw a menu were told of it last. It does not change, so that it can be
// read aside.
#pragma once

#include "uFlatMenu.h"
#include "uGLib.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace murala
{

class TToldMenu
{
public:
    // `first` is the number of the first entry; the menu itself has 0.
    TToldMenu(TFlatMenu menu, gint32 first, guint revision)
        : m_menu(std::move(menu)), m_first(first), m_revision(revision)
    {
    }

    const TFlatMenu& Menu() const { return m_menu; }
    guint Revision() const { return m_revision; }
    std::optional<std::size_t> Find(gint32 number) const;
    // For a menu of another shape, whose entries have numbers that nothing had before.
    TToldMenu Next(TFlatMenu menu) const;
    // For a menu of the same shape: what has to be told of it, the arguments of the signal
    // ItemsPropertiesUpdated; null when there is nothing.
    GVariant* Changes(const TToldMenu& before) const;
    TToldMenu WithStates(TFlatMenu menu) const { return {std::move(menu), m_first, m_revision}; }

    // They take the arguments and give the answer, null when there is no such entry.
    GVariant* GetLayout(GVariant* arguments) const;
    GVariant* GetGroupProperties(GVariant* arguments) const;
    GVariant* GetProperty(GVariant* arguments) const;
    // Whether that layout takes its time.
    bool IsLarge(GVariant* arguments) const;

private:
    using TNames = std::vector<std::string_view>;

    gint32 Number(std::size_t i) const;
    GVariant* PropertiesOf(std::size_t i, const TNames& wanted) const;
    GVariant* Layout(std::size_t i, int depth, const TNames& wanted) const;
    GVariant* GroupProperties(std::span<const gint32> numbers, const TNames& wanted) const;

    TFlatMenu m_menu;
    gint32 m_first;
    guint m_revision;
};

// The numbers of an array, "ai".
std::vector<gint32> NumbersOf(GVariant* array);

} // namespace murala
