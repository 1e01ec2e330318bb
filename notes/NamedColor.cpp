// SPDX-License-Identifier: MIT
#include "notes/NamedColor.h"

#include <QPalette>

#include <algorithm>
#include <array>

namespace {

struct Entry {
    QStringView name;
    QRgb light;
    QRgb dark;
};

constexpr std::array<Entry, 7> entries = {{
    {u"FocusRingColor", 0xff2f6fc4, 0xff6aa5f0},
    {u"HeaderBackgroundColor", 0xfff6f6f6, 0xff2a2a2c},
    {u"SecondaryLabelColor", 0xff6a6a6e, 0xffa0a0a6},
    {u"SeparatorColor", 0xffe4e4e6, 0xff3a3a3d},
    {u"SystemRedColor", 0xffba0019, 0xffff958c},
    {u"TableRowSelectedTextColor", 0xffffffff, 0xffffffff},
    {u"TableRowSelectionColor", 0xff2f6db5, 0xff2c5c94},
}};

} // namespace

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
    const auto* const entry =
        std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.name == name; });
    if (entry == entries.end()) {
        return {};
    }
    return QColor::fromRgb(isDarkAppearance(palette) ? entry->dark : entry->light);
}
