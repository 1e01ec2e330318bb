// SPDX-License-Identifier: MIT
#include "look/Appearance.h"

#include "host/GlobalDefaults.h"
#include "host/ProcessInfo.h"
#include "look/Colors.h"
#include "look/NamedColor.h"

#include <array>

namespace {

constexpr double firstReleaseWithDarkAppearance = 10.14;

struct RoleColors {
    QPalette::ColorRole role;
    ColorPair colors;
};

/// Dark (secondary texts), Link (the accent colour as a text) and BrightText (errors) are text colours here.
constexpr std::array roles{
    RoleColors{QPalette::Window, Colors::window},
    RoleColors{QPalette::WindowText, Colors::text},
    RoleColors{QPalette::Base, Colors::list},
    RoleColors{QPalette::AlternateBase, Colors::alternateRow},
    RoleColors{QPalette::Text, Colors::text},
    RoleColors{QPalette::BrightText, Colors::red},
    RoleColors{QPalette::Button, Colors::raised},
    RoleColors{QPalette::ButtonText, Colors::text},
    RoleColors{QPalette::Light, Colors::upperEdge},
    RoleColors{QPalette::Midlight, Colors::hovered},
    RoleColors{QPalette::Mid, Colors::line},
    RoleColors{QPalette::Dark, Colors::secondaryText},
    RoleColors{QPalette::Shadow, Colors::paleText},
    RoleColors{QPalette::Highlight, Colors::selection},
    RoleColors{QPalette::HighlightedText, Colors::selectedText},
    RoleColors{QPalette::Link, Colors::accentText},
    RoleColors{QPalette::LinkVisited, Colors::accentText},
    RoleColors{QPalette::PlaceholderText, Colors::placeholder},
    RoleColors{QPalette::ToolTipBase, Colors::raised},
    RoleColors{QPalette::ToolTipText, Colors::text},
};

constexpr std::array textRoles{QPalette::WindowText, QPalette::Text, QPalette::ButtonText};

void makeDisabledTextPale(QPalette& palette)
{
    for (const QPalette::ColorRole role : textRoles) {
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Shadow));
    }
}

QColor mixed(const QColor& a, const QColor& b, double shareOfB)
{
    const auto mix = [shareOfB](int x, int y) { return qRound(x + (y - x) * shareOfB); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

/// `given`, a high-contrast palette, completed with a colour for everything that the program shows.
QPalette completed(const QPalette& given)
{
    constexpr double hoverShare = 0.2;
    constexpr double disabledShare = 0.6; // still legible
    const QColor ground = given.color(QPalette::Active, QPalette::Base);
    const QColor text = given.color(QPalette::Active, QPalette::Text);
    QPalette palette;
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button,
                                           QPalette::Light, QPalette::ToolTipBase}) {
        palette.setColor(role, ground);
    }
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::Mid,
                                           QPalette::Dark, QPalette::PlaceholderText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
    }
    constexpr double legibleContrast = 7;
    const QColor selection = given.color(QPalette::Active, QPalette::Highlight);
    const QColor selectedText = given.color(QPalette::Active, QPalette::HighlightedText);
    const bool isSelectionRead = contrastOf(selection, selectedText) >= legibleContrast;
    palette.setColor(QPalette::Highlight, isSelectionRead ? selection : text);
    palette.setColor(QPalette::HighlightedText, isSelectionRead ? selectedText : ground);
    const QColor link = given.color(QPalette::Active, QPalette::Link); // often Qt's default, which suits no dark ground
    palette.setColor(QPalette::Link, contrastOf(link, ground) >= legibleContrast ? link : text);
    palette.setColor(QPalette::LinkVisited, palette.color(QPalette::Link));
    palette.setColor(QPalette::Midlight, mixed(ground, text, hoverShare));
    palette.setColor(QPalette::Shadow, mixed(ground, text, disabledShare));
    makeDisabledTextPale(palette);
    return palette;
}

} // namespace

Appearance systemAppearance(const ProcessInfo& processInfo, const GlobalDefaults& globalDefaults)
{
    const ProcessInfo::SystemVersion version = processInfo.operatingSystemVersion();
    const float release = QStringLiteral("%1.%2").arg(version.major).arg(version.minor).toFloat();
    const std::optional<QString> style = globalDefaults.stringForKey(QStringLiteral("AppleInterfaceStyle"));
    if (static_cast<double>(release) < firstReleaseWithDarkAppearance) {
        return Appearance::Light;
    }
    return style && style->contains(QStringLiteral("Dark")) ? Appearance::Dark : Appearance::Light;
}

QPalette calmPalette(Appearance appearance)
{
    const bool dark = appearance == Appearance::Dark;
    QPalette palette;
    for (const RoleColors& role : roles) {
        palette.setColor(role.role, role.colors.of(dark));
    }
    makeDisabledTextPale(palette);
    return palette;
}

QPalette strongPalette(Appearance appearance)
{
    const bool dark = appearance == Appearance::Dark;
    QPalette few;
    few.setColor(QPalette::Base, Colors::strongGround.of(dark));
    few.setColor(QPalette::Text, Colors::strongText.of(dark));
    few.setColor(QPalette::Highlight, Colors::strongAccent.of(dark));
    few.setColor(QPalette::HighlightedText, Colors::strongGround.of(dark));
    few.setColor(QPalette::Link, Colors::strongAccent.of(dark));
    return completed(few);
}

QPalette systemPalette(const ProcessInfo& processInfo, const GlobalDefaults& globalDefaults)
{
    const Appearance appearance = systemAppearance(processInfo, globalDefaults);
    if (!globalDefaults.prefersHighContrast()) {
        return calmPalette(appearance);
    }
    const QPalette own = globalDefaults.palette();
    const bool serves = isHighContrast(own) && isDarkAppearance(own) == (appearance == Appearance::Dark);
    return serves ? completed(own) : strongPalette(appearance);
}
