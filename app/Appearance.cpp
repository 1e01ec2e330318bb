// SPDX-License-Identifier: MIT
#include "app/Appearance.h"

#include "host/GlobalDefaults.h"
#include "host/ProcessInfo.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>
#include <QWidget>

#include <array>

namespace {

constexpr int basePixelSize = 13;
constexpr double firstReleaseWithDarkAppearance = 10.14;

struct RoleColors {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

/// Texts stand on Window, Base and Button at a contrast of 4.5:1 or better, Dark (secondary texts) and Link (the accent
/// colour as a text) and BrightText (what went wrong) included. What cannot be used now is in Shadow: it is told apart
/// by its paleness.
constexpr std::array roles{
    RoleColors{QPalette::Window, 0xfff5f5f7, 0xff1e1e20},
    RoleColors{QPalette::WindowText, 0xff1d1d1f, 0xfff2f2f4},
    RoleColors{QPalette::Base, 0xffffffff, 0xff29292c},
    RoleColors{QPalette::AlternateBase, 0xfffafafb, 0xff2e2e31},
    RoleColors{QPalette::Text, 0xff1d1d1f, 0xfff2f2f4},
    RoleColors{QPalette::BrightText, 0xffba0019, 0xffff958c},
    RoleColors{QPalette::Button, 0xffffffff, 0xff36363a},
    RoleColors{QPalette::ButtonText, 0xff1d1d1f, 0xfff2f2f4},
    RoleColors{QPalette::Light, 0xffffffff, 0xff48484c},
    RoleColors{QPalette::Midlight, 0xffececf0, 0xff3f3f44},
    RoleColors{QPalette::Mid, 0xffd6d6dc, 0xff4c4c52},
    RoleColors{QPalette::Dark, 0xff5c5c62, 0xffb0b0b7},
    RoleColors{QPalette::Shadow, 0xffa6a6ac, 0xff77777d},
    RoleColors{QPalette::Highlight, 0xff2f6db5, 0xff3a76bd},
    RoleColors{QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    RoleColors{QPalette::Link, 0xff2a65aa, 0xff78aef2},
    RoleColors{QPalette::LinkVisited, 0xff2a65aa, 0xff78aef2},
    RoleColors{QPalette::PlaceholderText, 0xff6a6a70, 0xffa0a0a6},
    RoleColors{QPalette::ToolTipBase, 0xffffffff, 0xff36363a},
    RoleColors{QPalette::ToolTipText, 0xff1d1d1f, 0xfff2f2f4},
};

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
        palette.setColor(role.role, QColor::fromRgb(dark ? role.dark : role.light));
    }
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Shadow));
    }
    return palette;
}

void applyStyle()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont base = QApplication::font();
    base.setPixelSize(basePixelSize);
    QApplication::setFont(base);
}

void applyAppearance(Appearance appearance, QWidget& window)
{
    QApplication::setPalette(calmPalette(appearance));
    applyStyleRules(window); // anew: widgets under a style sheet keep the palette that it made for them
}

void applyStyleRules(QWidget& window)
{
    Q_INIT_RESOURCE(velumora); // it stands in a library
    QFile rules(QStringLiteral(":/velumora.qss"));
    if (rules.open(QIODevice::ReadOnly)) {
        window.setStyleSheet(QString::fromUtf8(rules.readAll()));
    }
}
