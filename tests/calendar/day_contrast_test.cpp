// SPDX-License-Identifier: MIT
#include "calendar/DayButton.h"
#include "look/Appearance.h"
#include "look/NamedColor.h"
#include "support/Contrast.h"
#include "support/Screenshot.h"

#include <QCoreApplication>
#include <QEnterEvent>
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

std::string nameOf(const ::testing::TestParamInfo<Appearance>& info)
{
    return info.param == Appearance::Dark ? "Dark" : "Light";
}

INSTANTIATE_TEST_SUITE_P(Both, ContrastTest, ::testing::Values(Appearance::Light, Appearance::Dark), nameOf);

/// What a note adds to the picture of a day: enough of it stands out from the card and from the circle around it.
TEST_P(ContrastTest, TheMarkOfADayWithANoteIsSeen)
{
    const AppearanceGuard guard(GetParam());
    const QColor card = colors.color(QPalette::Base);
    const auto picture = [&card](DayButton::State state) {
        DayButton day; // without a title: its bold digits are no mark of their own
        day.resize(34, 34);
        day.setState(state);
        QImage image(day.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(card);
        day.render(&image, {}, {}, {});
        return image;
    };
    const QImage marked = picture(DayButton::On);
    const QColor circle = marked.pixelColor(17, 17);
    int seen = 0;
    for (int y = 0; y < marked.height(); ++y) {
        for (int x = 0; x < marked.width(); ++x) {
            const QColor pixel = marked.pixelColor(x, y);
            seen += contrast(pixel, card) >= visible && contrast(pixel, circle) >= visible ? 1 : 0;
        }
    }
    EXPECT_GE(seen, 8) << "pixels of a mark that all can see";
}

/// A day's number on every ground that its circle can have, as it is painted.
TEST_P(ContrastTest, EveryDayIsReadTodayIncluded)
{
    const AppearanceGuard guard(GetParam());
    for (const DayButton::State state : {DayButton::Off, DayButton::On}) {
        for (const bool hovered : {false, true}) {
            for (const bool pressed : {false, true}) {
                DayButton day;
                day.resize(34, 34);
                day.setState(state);
                day.setDown(pressed);
                if (hovered) {
                    QEnterEvent enter({}, {}, {});
                    QCoreApplication::sendEvent(&day, &enter);
                }
                QImage card(day.size(), QImage::Format_ARGB32_Premultiplied);
                card.fill(colors.color(QPalette::Base));
                day.render(&card, {}, {}, {});
                const QColor ground = card.pixelColor(17, 17); // without a title nothing covers it
                const std::string what = std::string(state == DayButton::On ? "note" : "plain") +
                                         (hovered ? ", hovered" : "") + (pressed ? ", pressed" : "");
                expectContrast(colors.color(QPalette::Text), ground, readable, what.c_str());
                expectContrast(named(u"SystemRedColor"), ground, readable, ("today, " + what).c_str());
                EXPECT_EQ(ground == colors.color(QPalette::Base), state == DayButton::Off && !hovered && !pressed);
            }
        }
    }
}

} // namespace
