// SPDX-License-Identifier: MIT
#include "look/Announcer.h"
#include "support/HeardEvents.h"

#include <QCoreApplication>
#include <QWidget>
#include <gmock/gmock.h>

namespace {

using ::testing::IsEmpty;

QString nameOf(QObject& object)
{
    return QAccessible::queryAccessibleInterface(&object)->text(QAccessible::Name);
}

TEST(AnnouncerTest, SaysOnceTheEventInHandIsOver)
{
    QWidget window;
    Announcer announcer(window);
    const HeardEvents heard;
    announcer.announce(Announcer::Kind::Page, QStringLiteral("April 2024"));
    EXPECT_THAT(heard.all(), IsEmpty());
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(heard.announcements(), QStringList{QStringLiteral("April 2024")});
    ASSERT_EQ(heard.all().size(), 2);
    EXPECT_EQ(heard.all().first().type, QAccessible::NameChanged) << "a reader keeps the names that it was told";
    EXPECT_EQ(nameOf(announcer), QStringLiteral("April 2024"));
}

TEST(AnnouncerTest, SaysWhatOneEventAnnouncesAsOneAndOfEachKindTheLast)
{
    QWidget window;
    Announcer announcer(window);
    const HeardEvents heard;
    announcer.announce(Announcer::Kind::Page, QStringLiteral("March 2024"));
    announcer.announce(Announcer::Kind::Rows, QStringLiteral("Notes found: 3"));
    announcer.announce(Announcer::Kind::Page, QStringLiteral("April 2024"));
    QCoreApplication::sendPostedEvents();
    announcer.announce(Announcer::Kind::Page, QStringLiteral("April 2024"));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(heard.announcements(),
              QStringList({QStringLiteral("April 2024. Notes found: 3"), QStringLiteral("April 2024")}));
}

TEST(AnnouncerTest, IsNotSeen)
{
    QWidget window;
    const Announcer announcer(window);
    window.show();
    EXPECT_FALSE(announcer.isVisible());
}

} // namespace
