// SPDX-License-Identifier: MIT
#include "look/Appearance.h"
#include "look/NamedColor.h"
#include "support/Contrast.h"
#include "support/FakeHost.h"

#include <gtest/gtest.h>

namespace {

constexpr double readable = 4.5;
constexpr double visible = 3.0; ///< what a mark that is no text needs

class ContrastTest : public ::testing::TestWithParam<Appearance> {
protected:
    const QPalette colors = calmPalette(GetParam());

    QColor named(QStringView name) const { return namedColor(name, colors); }

    void expectContrast(const QColor& text, const QColor& ground, double least, const char* what) const
    {
        EXPECT_GE(contrast(text, ground), least)
            << what << ": " << text.name().toStdString() << " on " << ground.name().toStdString();
    }
};

std::string nameOfAppearance(const ::testing::TestParamInfo<Appearance>& info)
{
    return info.param == Appearance::Dark ? "Dark" : "Light";
}

INSTANTIATE_TEST_SUITE_P(Both, ContrastTest, ::testing::Values(Appearance::Light, Appearance::Dark), nameOfAppearance);

TEST_P(ContrastTest, EveryTextOfThePaletteIsRead)
{
    using Role = QPalette::ColorRole;
    struct {
        const char* what;
        Role text;
        Role ground;
    } const rows[] = {
        {"text on the window", Role::WindowText, Role::Window},
        {"text on a card", Role::WindowText, Role::Base},
        {"menu title under the pointer", Role::WindowText, Role::Midlight},
        {"secondary text on the window", Role::Dark, Role::Window},
        {"secondary text on a card", Role::Dark, Role::Base},
        {"accented text on the window", Role::Link, Role::Window},
        {"accented text on a card", Role::Link, Role::Base},
        {"text of a list", Role::Text, Role::Base},
        {"text of every other row", Role::Text, Role::AlternateBase},
        {"placeholder", Role::PlaceholderText, Role::Base},
        {"button", Role::ButtonText, Role::Button},
        {"button on the window", Role::ButtonText, Role::Window},
        {"button under the pointer", Role::ButtonText, Role::Midlight},
        {"pressed button", Role::ButtonText, Role::Mid},
        {"selection", Role::HighlightedText, Role::Highlight},
        {"tool tip", Role::ToolTipText, Role::ToolTipBase},
    };
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        for (const auto& row : rows) {
            expectContrast(colors.color(group, row.text), colors.color(group, row.ground), readable, row.what);
        }
    }
}

TEST_P(ContrastTest, EveryTextOfATableIsReadFocusedOrNot)
{
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        QPalette now = colors;
        now.setCurrentColorGroup(group);
        const auto color = [&now](QStringView name) { return namedColor(name, now); };
        const QColor ground = color(u"ControlBackgroundColor");
        expectContrast(color(u"ControlTextColor"), ground, readable, "cell");
        expectContrast(color(u"SystemRedColor"), ground, readable, "today");
        expectContrast(color(u"SecondaryLabelColor"), ground, readable, "placeholder");
        expectContrast(color(u"ControlTextColor"), color(u"HeaderBackgroundColor"), readable, "header");
        expectContrast(color(u"TableRowSelectedTextColor"), color(u"TableRowSelectionColor"), readable, "selected row");
        expectContrast(color(u"FocusRingColor"), ground, visible, "focus ring");
    }
}

TEST_P(ContrastTest, ASelectedRowStandsOutFromTheOthers)
{
    EXPECT_NE(named(u"TableRowSelectionColor"), named(u"ControlBackgroundColor"));
    EXPECT_NE(named(u"SeparatorColor"), named(u"ControlBackgroundColor"));
    EXPECT_GT(contrast(named(u"TableRowSelectionColor"), named(u"ControlBackgroundColor")), 1.5);
}

/// In high contrast every text and every line stands out as the guidelines' strictest level asks, and more.
class StrongContrastTest : public ::testing::TestWithParam<Appearance> {};

INSTANTIATE_TEST_SUITE_P(Both, StrongContrastTest, ::testing::Values(Appearance::Light, Appearance::Dark),
                         nameOfAppearance);

TEST_P(StrongContrastTest, EveryTextAndEveryLineStandsOut)
{
    constexpr double strong = 7.0;
    const QPalette colors = strongPalette(GetParam());
    const QColor ground = colors.color(QPalette::Base);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::Dark, QPalette::Mid, QPalette::Link,
          QPalette::PlaceholderText, QPalette::Highlight}) {
        EXPECT_GE(contrast(colors.color(role), ground), strong) << role;
    }
    EXPECT_GE(contrast(colors.color(QPalette::HighlightedText), colors.color(QPalette::Highlight)), strong);
    EXPECT_GE(contrast(colors.color(QPalette::ButtonText), colors.color(QPalette::Midlight)), strong);
    EXPECT_GE(contrast(colors.color(QPalette::Disabled, QPalette::ButtonText), ground), readable);
    for (const QStringView name : {u"SecondaryLabelColor", u"SeparatorColor", u"FocusRingColor", u"ControlTextColor"}) {
        EXPECT_GE(contrast(namedColor(name, colors), ground), strong) << name.toString().toStdString();
    }
    EXPECT_GE(contrast(namedColor(u"SystemRedColor", colors), ground), 6.5);
    EXPECT_GE(contrast(namedColor(u"TableRowSelectedTextColor", colors), namedColor(u"TableRowSelectionColor", colors)),
              strong);
}

QPalette desktopColors(const QColor& ground, const QColor& text)
{
    QPalette colors;
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        colors.setColor(role, ground);
    }
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colors.setColor(role, text);
    }
    return colors;
}

TEST(HighContrastTest, IsToldByOneGroundUnderTextsThatStandOut)
{
    EXPECT_TRUE(isHighContrast(desktopColors(Qt::black, Qt::white)));
    EXPECT_TRUE(isHighContrast(desktopColors(Qt::black, Qt::yellow)));
    EXPECT_FALSE(isHighContrast(desktopColors(QColor(0x31, 0x36, 0x3b), QColor(0xfc, 0xfc, 0xfc))));
    QPalette toolkits = desktopColors(Qt::white, Qt::black);
    toolkits.setColor(QPalette::Window, QColor(0xef, 0xef, 0xef));
    EXPECT_FALSE(isHighContrast(toolkits));
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        EXPECT_FALSE(isHighContrast(calmPalette(appearance)));
        EXPECT_TRUE(isHighContrast(strongPalette(appearance)));
    }
}

TEST(HighContrastTest, TheDesktopsOwnColoursAreKeptWhereTheyAreOfHighContrast)
{
    FakeHost host;
    host.globalDefaults.highContrast = true;
    host.globalDefaults.interfaceStyle = QStringLiteral("Dark");
    host.globalDefaults.colors = desktopColors(Qt::black, Qt::yellow);
    const QPalette kept = systemPalette(host.processInfo, host.globalDefaults);
    EXPECT_EQ(kept.color(QPalette::WindowText), QColor(Qt::yellow));
    EXPECT_EQ(kept.color(QPalette::Mid), QColor(Qt::yellow)) << "lines";
    EXPECT_EQ(kept.color(QPalette::Window), QColor(Qt::black));
    for (const QPalette::ColorRole role : {QPalette::Link, QPalette::Highlight}) { // the toolkit's are dark blues
        EXPECT_GE(contrast(kept.color(role), Qt::black), 4.5) << role;
    }
    EXPECT_GE(contrast(kept.color(QPalette::Highlight), kept.color(QPalette::HighlightedText)), 7);

    host.globalDefaults.interfaceStyle = std::nullopt; // the user has gone over to light since the start
    EXPECT_EQ(systemPalette(host.processInfo, host.globalDefaults), strongPalette(Appearance::Light));
    host.globalDefaults.highContrast = false;
    EXPECT_EQ(systemPalette(host.processInfo, host.globalDefaults), calmPalette(Appearance::Light));
}

} // namespace
