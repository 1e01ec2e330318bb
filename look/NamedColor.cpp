// SPDX-License-Identifier: MIT
#include "look/NamedColor.h"

#include "look/Colors.h"

#include <QPalette>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Entry {
    QStringView name;
    ColorPair colors;
};

constexpr double strongContrast = 15; ///< the most is 21

constexpr std::array<Entry, 9> entries = {{
    {u"EngravingColor", Colors::engraving},
    {u"EngravingLipColor", Colors::engravingLip},
    {u"FocusRingColor", Colors::focusRing},
    {u"HeaderBackgroundColor", Colors::columnHeader},
    {u"SecondaryLabelColor", Colors::secondaryTextOfList},
    {u"SeparatorColor", Colors::hairline},
    {u"SystemRedColor", Colors::red},
    {u"TableRowSelectedTextColor", Colors::selectedText},
    {u"TableRowSelectionColor", Colors::selectedRow},
}};

/// The same in a high-contrast palette, which has few colours of its own.
struct StrongEntry {
    QStringView name;
    QPalette::ColorRole role;
};

constexpr std::array<StrongEntry, 8> strongEntries = {{
    {u"EngravingColor", QPalette::Text},
    {u"EngravingLipColor", QPalette::Base},
    {u"FocusRingColor", QPalette::Link},
    {u"HeaderBackgroundColor", QPalette::Base},
    {u"SecondaryLabelColor", QPalette::Text},
    {u"SeparatorColor", QPalette::Text},
    {u"TableRowSelectedTextColor", QPalette::HighlightedText},
    {u"TableRowSelectionColor", QPalette::Highlight},
}};

double luminance(const QColor& color)
{
    const auto linear = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Whether it is a high-contrast palette made by this program. A control's grounds are no indication: a style rule that
/// gives it a background sets all of them.
bool hasStrongLines(const QPalette& palette)
{
    return palette.color(QPalette::Mid) == palette.color(QPalette::Text);
}

} // namespace

double contrastOf(const QColor& a, const QColor& b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

bool isHighContrast(const QPalette& palette)
{
    const QColor ground = palette.color(QPalette::Base);
    const bool isOneGround = palette.color(QPalette::Window) == ground && palette.color(QPalette::Button) == ground;
    return isOneGround && contrastOf(palette.color(QPalette::Text), ground) >= strongContrast &&
           contrastOf(palette.color(QPalette::WindowText), ground) >= strongContrast;
}

bool isDarkAppearance(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

QColor namedColor(QStringView name, const QPalette& palette)
{
    if (name == u"ControlTextColor") {
        return palette.color(QPalette::Text);
    }
    if (name == u"ControlBackgroundColor") {
        return palette.color(QPalette::Base);
    }
    if (hasStrongLines(palette)) {
        const auto* const strong = std::ranges::find(strongEntries, name, &StrongEntry::name);
        if (strong != strongEntries.end()) {
            return palette.color(strong->role);
        }
    }
    const auto* const entry =
        std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.name == name; });
    if (entry == entries.end()) {
        return {};
    }
    return entry->colors.of(isDarkAppearance(palette));
}
