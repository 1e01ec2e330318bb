// SPDX-License-Identifier: MIT
#include "look/Appearance.h"

#include "host/GlobalDefaults.h"
#include "host/ProcessInfo.h"
#include "look/Colors.h"
#include "look/NamedColor.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPalette>
#include <QRegularExpression>
#include <QStyleFactory>
#include <QWidget>

#include <array>

namespace {

constexpr int usualPixelSize = 13; ///< of text when the desktop states none
const QString followerName = QStringLiteral("textSizeFollower");
constexpr double pixelsPerPoint = 96.0 / 72;

constexpr double firstReleaseWithDarkAppearance = 10.14;

struct RoleColors {
    QPalette::ColorRole role;
    ColorPair colors;
};

/// Dark, Link and BrightText are colours of texts here.
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

/// Whether it is Qt's fallback font, for programs to which no desktop gives one.
bool isMadeUp(const QFont& font)
{
    constexpr int madeUpPointSize = 9;
    return font.family() == QStringLiteral("Sans Serif") && font.pointSize() == madeUpPointSize;
}

/// The rules with lengths in rem converted to pixels.
QString inPixels(const QString& rules)
{
    static const QRegularExpression rem(QStringLiteral("([0-9.]+)rem"));
    const int one = QFontInfo(QApplication::font()).pixelSize();
    QString told;
    qsizetype end = 0;
    for (auto matches = rem.globalMatch(rules); matches.hasNext();) {
        const QRegularExpressionMatch length = matches.next();
        told += rules.sliced(end, length.capturedStart() - end);
        told += QStringLiteral("%1px").arg(qRound(length.captured(1).toDouble() * one));
        end = length.capturedEnd();
    }
    return told + rules.sliced(end);
}

QString rulesOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? inPixels(QString::fromUtf8(file.readAll())) : QString();
}

/// Reapplies the style rules to its window when the text size changes.
class TextSizeFollower : public QObject {
public:
    explicit TextSizeFollower(QWidget& window) : QObject(&window), m_window(window)
    {
        setObjectName(followerName);
        window.installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ApplicationFontChange) {
            applyStyleRules(m_window);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& m_window;
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

int textPixelSize(const QFont& given, const DesktopText& text)
{
    if (!isMadeUp(given)) {
        return qRound(QFontInfo(given).pixelSize() * text.scaling);
    }
    return qRound((text.points ? *text.points * pixelsPerPoint : usualPixelSize) * text.scaling);
}

void applyStyle()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    applyTextSize({});
}

void applyTextSize(const DesktopText& text)
{
    const int size = textPixelSize(QFontDatabase::systemFont(QFontDatabase::GeneralFont), text);
    QFont font = QApplication::font();
    if (QFontInfo(font).pixelSize() != size) {
        font.setPixelSize(size);
        QApplication::setFont(font);
    }
}

void applyPalette(const QPalette& palette, QWidget& window)
{
    QApplication::setPalette(palette);
    applyStyleRules(window); // again, because widgets under a style sheet keep the palette that it made for them
}

void applyStyleRules(QWidget& window)
{
    Q_INIT_RESOURCE(velumora); // needed for resources in a static library
    const QString strong =
        isHighContrast(QApplication::palette()) ? rulesOf(QStringLiteral(":/high-contrast.qss")) : QString();
    window.setStyleSheet(rulesOf(QStringLiteral(":/velumora.qss")) + strong);
    if (!window.findChild<QObject*>(followerName, Qt::FindDirectChildrenOnly)) {
        new TextSizeFollower(window); // owned by the window
    }
}
