// SPDX-License-Identifier: MIT
#include "look/FirstPaint.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

/// A window that counts what it paints.
class Window : public QWidget {
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

class FirstPaintTest : public testing::Test {
protected:
    Window window;
    QPointer<FirstPaint> first = new FirstPaint(window);
    QSignalSpy painted{first, &FirstPaint::painted};
};

TEST_F(FirstPaintTest, TellsOfAPictureAndOfNothingBefore)
{
    window.ensurePolished();
    window.resize(200, 100);
    window.setWindowTitle(QStringLiteral("March"));
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.count(), 0);

    window.show();
    EXPECT_EQ(painted.count(), 0);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(painted.count(), 1);
    EXPECT_GE(window.paints, 1); // it is painted all the same
}

TEST_F(FirstPaintTest, TellsBeforeTheWindowPaints)
{
    int paintsBefore = -1;
    QObject::connect(first, &FirstPaint::painted, &window, [&] { paintsBefore = window.paints; });
    window.grab();
    EXPECT_EQ(paintsBefore, 0);
    EXPECT_EQ(window.paints, 1);
}

TEST_F(FirstPaintTest, TellsOnceAndIsGone)
{
    window.grab();
    window.grab();
    EXPECT_EQ(window.paints, 2);
    EXPECT_EQ(painted.count(), 1);
    QCoreApplication::sendPostedEvents(first, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());
}

TEST_F(FirstPaintTest, GoesWithAWindowThatPaintsNothing)
{
    auto* closed = new Window;
    const QPointer<FirstPaint> ofClosed = new FirstPaint(*closed);
    delete closed;
    EXPECT_TRUE(ofClosed.isNull());
}

} // namespace
