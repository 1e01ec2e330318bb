// SPDX-License-Identifier: MIT
#include "look/NamedColor.h"

#include <QPalette>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Entry {
    QStringView name;
    QRgb light;
    QRgb dark;
};

constexpr double strongContrast = 15; ///< the most is 21

constexpr std::array<Entry, 7> entries = {{
    {u"FocusRingColor", 0xff2f6fc4, 0xff6aa5f0},
    {u"HeaderBackgroundColor", 0xfff6f6f6, 0xff2a2a2c},
    {u"SecondaryLabelColor", 0xff6a6a6e, 0xffa0a0a6},
    {u"SeparatorColor", 0xffe4e4e6, 0xff3a3a3d},
    {u"SystemRedColor", 0xffba0019, 0xffff958c},
    {u"TableRowSelectedTextColor", 0xffffffff, 0xffffffff},
    {u"TableRowSelectionColor", 0xff2f6db5, 0xff2c5c94},
}};

/// The same in a high-contrast palette, which has few colours of its own.
struct StrongEntry {
    QStringView name;
    QPalette::ColorRole role;
};

constexpr std::array<StrongEntry, 6> strongEntries = {{
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
    return QColor::fromRgb(isDarkAppearance(palette) ? entry->dark : entry->light);
}
