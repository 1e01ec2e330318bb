// SPDX-License-Identifier: MIT
#include "look/NamedColor.h"
#include "support/Contrast.h"

#include <QPalette>
#include <gtest/gtest.h>

namespace {

QPalette palette(QColor base, QColor text)
{
    QPalette result;
    result.setColor(QPalette::Base, base);
    result.setColor(QPalette::Text, text);
    return result;
}

const QPalette light = palette(Qt::white, Qt::black);
const QPalette dark = palette(QColor(0x1e, 0x1e, 0x20), QColor(0xe6, 0xe6, 0xe8));

TEST(NamedColor, TextColoursCanBeReadInLightAndDark)
{
    for (const QPalette& appearance : {light, dark}) {
        const QColor ground = namedColor(u"ControlBackgroundColor", appearance);
        for (const QStringView name : {u"SystemRedColor", u"SecondaryLabelColor", u"ControlTextColor"}) {
            EXPECT_GE(contrast(namedColor(name, appearance), ground), 4.5) << name.toString().toStdString();
        }
        EXPECT_GE(contrast(namedColor(u"TableRowSelectedTextColor", appearance),
                           namedColor(u"TableRowSelectionColor", appearance)),
                  4.5);
        EXPECT_GE(
            contrast(namedColor(u"ControlTextColor", appearance), namedColor(u"HeaderBackgroundColor", appearance)),
            4.5);
        EXPECT_GE(contrast(namedColor(u"FocusRingColor", appearance), ground), 3.0);
    }
}

TEST(NamedColor, FollowsTheAppearance)
{
    EXPECT_FALSE(isDarkAppearance(light));
    EXPECT_TRUE(isDarkAppearance(dark));
    EXPECT_NE(namedColor(u"TableRowSelectionColor", light), namedColor(u"TableRowSelectionColor", dark));
}

TEST(NamedColor, AnUnknownNameIsNoColour)
{
    EXPECT_FALSE(namedColor(u"NoSuchColor", light).isValid());
}

} // namespace
