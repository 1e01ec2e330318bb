// SPDX-License-Identifier: MIT
#include "look/Appearance.h"
#include "look/NamedColor.h"
#include "support/Contrast.h"
#include "widgets/ZTRButtonHover.h"
#include "widgets/ZTRSeparator.h"

#include <QApplication>
#include <QEnterEvent>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QColor at(const QImage& image, int x, int y)
{
    return image.pixelColor(x, y);
}

const QPalette light = calmPalette(Appearance::Light);

/// A separator of 20 by 10 points on red, `part` of it drawn.
QImage drawnSeparator(const QPalette& colors, const QRect& part)
{
    ZTRSeparator separator;
    separator.setPalette(colors);
    separator.resize(20, 10);
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    separator.drawRect(painter, part);
    return image;
}

void expectRule(const QImage& image, const QColor& line, const QColor& band)
{
    for (const int x : {0, 19}) {
        EXPECT_EQ(at(image, x, 6), QColor(Qt::red));
        EXPECT_EQ(at(image, x, 7), line);
        EXPECT_EQ(at(image, x, 8), band);
        EXPECT_EQ(at(image, x, 9), band);
    }
}

TEST(ZTRSeparator, IsAWhiteBandOfTwoPointsUnderALineOfLightGrey)
{
    expectRule(drawnSeparator(light, QRect(0, 0, 20, 10)), QColor(0xaa, 0xaa, 0xaa), Qt::white); // two thirds of white
}

TEST(ZTRSeparator, InTheDarkIsABandLittleLighterThanTheWindowUnderALineThatIsDarker)
{
    const QImage image = drawnSeparator(calmPalette(Appearance::Dark), QRect(0, 0, 20, 10));
    const QColor window = calmPalette(Appearance::Dark).color(QPalette::Window);
    const QColor line = at(image, 0, 7);
    const QColor band = at(image, 0, 8);
    expectRule(image, line, band);
    EXPECT_LT(line.lightness(), window.lightness());
    EXPECT_GT(band.lightness(), window.lightness());
    EXPECT_LT(contrast(band, window), 1.6);
    EXPECT_GT(contrast(band, line), 1.6);
}

TEST(ZTRSeparator, InHighContrastIsALineAsStrongAsAText)
{
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        const QPalette colors = strongPalette(appearance);
        expectRule(drawnSeparator(colors, QRect(0, 0, 20, 10)), colors.color(QPalette::Text),
                   colors.color(QPalette::Window));
    }
}

TEST(ZTRSeparator, StartsAtTheLeftEdgeThoughTheDrawnPartStartsFurtherRight)
{
    const QImage image = drawnSeparator(light, QRect(12, 0, 8, 10));
    EXPECT_EQ(at(image, 0, 9), QColor(Qt::white));
    EXPECT_EQ(at(image, 7, 9), QColor(Qt::white));
    EXPECT_EQ(at(image, 8, 9), QColor(Qt::red));
}

TEST(ZTRSeparator, HasNoGapWhereAPartOfItIsPaintedAnew)
{
    ZTRSeparator separator;
    separator.setPalette(light);
    separator.resize(20, 10);
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QRect part(12, 0, 8, 10);
    separator.render(&image, part.topLeft(), part, {});
    for (const int x : {12, 19}) {
        EXPECT_EQ(at(image, x, 7), QColor(0xaa, 0xaa, 0xaa)) << x;
        EXPECT_EQ(at(image, x, 9), QColor(Qt::white)) << x;
    }
}

class HoverButton : public ::testing::Test {
protected:
    HoverButton()
    {
        window.resize(200, 100);
        button.setGeometry(20, 20, 60, 30);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void enter()
    {
        QEnterEvent event(QPointF(5, 5), QPointF(25, 25), QPointF(25, 25));
        QApplication::sendEvent(&button, &event);
    }

    void leave()
    {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(&button, &event);
    }

    QWidget window;
    ZTRButtonHover button{&window};
};

TEST_F(HoverButton, IsHighlightedWhileThePointerIsOverIt)
{
    EXPECT_FALSE(button.isHighlighted());
    enter();
    EXPECT_TRUE(button.isHighlighted());
    leave();
    EXPECT_FALSE(button.isHighlighted());
}

TEST_F(HoverButton, TheHighlightIsPainted)
{
    const auto painted = [this] { return button.grab().toImage(); };
    const QImage before = painted();
    enter();
    const QPoint inside(button.width() / 2, 6);
    EXPECT_LT(painted().pixelColor(inside).lightness(), before.pixelColor(inside).lightness());
    leave();
    EXPECT_EQ(painted(), before);
}

TEST_F(HoverButton, ShowsThePointingHandWhileEnabled)
{
    enter();
    EXPECT_EQ(button.cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(HoverButton, DisabledKeepsTheArrowButIsHighlightedAllTheSame)
{
    button.setEnabled(false);
    enter();
    EXPECT_EQ(button.cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(button.isHighlighted());
}

TEST_F(HoverButton, ResizingReplacesTheTrackingAreaByOneOverTheNewBounds)
{
    button.resize(90, 40);
    ASSERT_TRUE(button.trackingArea().has_value());
    EXPECT_EQ(button.trackingArea()->rect, QRect(0, 0, 90, 40));
    EXPECT_EQ(button.trackingArea()->options.toInt(), 37);
}

TEST_F(HoverButton, IsNotHighlightedInAWindowThatIsNotActive)
{
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    enter();
    EXPECT_FALSE(button.isHighlighted());
}

} // namespace
