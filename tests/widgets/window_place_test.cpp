// SPDX-License-Identifier: MIT
#include "widgets/WindowPlace.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

constexpr QMargins frame(4, 30, 4, 4);
constexpr QSize least(400, 300);
constexpr QRect large(0, 0, 1920, 1080);
constexpr QRect small(0, 0, 1024, 600);
constexpr QRect besideLarge(1920, 0, 1280, 1024);

TEST(PlacedOnScreenTest, WhatFitsStaysWhereItWas)
{
    EXPECT_EQ(placedOnScreen({100, 80, 900, 640}, frame, least, {large}), QRect(100, 80, 900, 640));
    EXPECT_EQ(placedOnScreen({2000, 80, 900, 640}, frame, least, {large, besideLarge}), QRect(2000, 80, 900, 640));
}

TEST(PlacedOnScreenTest, AfterTheScreenShrankItLiesWithinItFrameAndAll)
{
    for (const QRect& wanted : {QRect(500, 300, 1080, 760), QRect(0, 0, 1920, 1080), QRect(900, 500, 500, 400)}) {
        const QRect placed = placedOnScreen(wanted, frame, least, {small});
        EXPECT_TRUE(small.contains(placed.marginsAdded(frame)));
        EXPECT_EQ(placed.size(), wanted.size().boundedTo({1016, 566}));
    }
}

TEST(PlacedOnScreenTest, OffAllScreensItIsBroughtBack)
{
    for (const QRect& wanted : {QRect(3000, 100, 900, 640), QRect(-2000, -900, 900, 640), QRect(100, 5000, 900, 640)}) {
        EXPECT_TRUE(large.contains(placedOnScreen(wanted, frame, least, {large}).marginsAdded(frame)));
    }
}

TEST(PlacedOnScreenTest, OfTwoScreensItIsTheOneThatShowsMostOfIt)
{
    EXPECT_TRUE(besideLarge.contains(placedOnScreen({1800, 100, 900, 640}, frame, least, {large, besideLarge})));
    EXPECT_TRUE(large.contains(placedOnScreen({1300, 100, 900, 640}, frame, least, {large, besideLarge})));
}

TEST(PlacedOnScreenTest, BelowItsLeastSizeItBeginsAtTheTopLeft)
{
    const QRect placed = placedOnScreen({50, 60, 900, 640}, frame, least, {QRect(0, 0, 320, 200)});
    EXPECT_EQ(placed, QRect(4, 30, 400, 300));
}

TEST(PlacedAgainTest, AtAScreensEdgeItStaysThereThoughAnotherFrameWouldNotFit)
{
    for (const QRect& tiled : {QRect(0, 27, 960, 1053), QRect(960, 27, 960, 1053), QRect(0, 0, 1920, 1080)}) {
        EXPECT_EQ(placedAgain(tiled, frame, least, {large}), tiled);
    }
    EXPECT_EQ(placedAgain({1920, 0, 640, 1024}, frame, least, {large, besideLarge}), QRect(1920, 0, 640, 1024));
}

TEST(PlacedAgainTest, WhatNoScreenHoldsWholeIsPlacedAnew)
{
    for (const QRect& last : {QRect(500, 300, 1080, 760), QRect(-4, 30, 900, 500), QRect(0, 0, 100, 100)}) {
        EXPECT_EQ(placedAgain(last, frame, least, {small}), placedOnScreen(last, frame, least, {small}));
    }
}

class WindowPlaceTest : public ::testing::Test {
protected:
    /// The program runs once: the window shows, `use` moves it about, it closes.
    template <typename Use> void run(Use use)
    {
        QMainWindow window;
        window.resize(700, 500);
        WindowPlace place(m_file, window);
        window.show();
        use(window);
        window.close();
        place.save(); // as at quitting: a closed window is not asked any more
    }

    void write(const std::string& text) const
    {
        std::filesystem::create_directories(m_file.parent_path());
        std::ofstream(m_file) << text;
    }
    std::string written() const
    {
        std::ifstream file(m_file);
        return {std::istreambuf_iterator(file), {}};
    }

    QRect screen() const { return QGuiApplication::primaryScreen()->availableGeometry(); }

    QTemporaryDir m_home;
    const std::filesystem::path m_file =
        std::filesystem::path(m_home.path().toStdString()) / "state" / "velumora" / "Window";
};

TEST_F(WindowPlaceTest, TheWindowComesBackWithItsSizeAndPlace)
{
    run([](QMainWindow& window) { window.setGeometry(60, 50, 610, 430); });
    EXPECT_EQ(written(), "60 50 610 430 normal\n");
    run([](QMainWindow& window) { EXPECT_EQ(window.geometry(), QRect(60, 50, 610, 430)); });
}

TEST_F(WindowPlaceTest, AMaximisedWindowComesBackMaximisedAndGoesBackToItsFormerSize)
{
    run([](QMainWindow& window) {
        window.setGeometry(60, 50, 610, 430);
        window.showMaximized();
    });
    run([](QMainWindow& window) {
        EXPECT_TRUE(window.isMaximized());
        window.showNormal();
        EXPECT_EQ(window.geometry(), QRect(60, 50, 610, 430));
    });
}

TEST_F(WindowPlaceTest, TheFirstTimeTheWindowHasItsLayoutsSizeWithinTheScreen)
{
    run([](QMainWindow& window) { EXPECT_EQ(window.size(), QSize(700, 500)); });
    std::filesystem::remove(m_file);
    QMainWindow window;
    window.resize(5000, 4000);
    const WindowPlace place(m_file, window);
    EXPECT_LE(window.width(), screen().width());
    EXPECT_LE(window.height(), screen().height());
}

TEST_F(WindowPlaceTest, APlaceOnAScreenThatIsGoneIsBroughtOntoOneThatIsThere)
{
    write("9000 7000 4000 3000 normal\n");
    run([this](QMainWindow& window) { EXPECT_TRUE(screen().contains(window.geometry())); });
}

TEST_F(WindowPlaceTest, AFileThatTellsNoPlaceIsAsNone)
{
    for (const char* text : {"", "60 50 610 430", "60 50 610 430 huge", "60 50 -610 430 normal", "a b c d normal",
                             "60 50 610 999999999999 normal", "-2147483648 50 610 430 normal",
                             "60 100001 610 430 normal", "60 -100001 610 430 normal", "\xff\xfe 1 2 3 normal"}) {
        write(text);
        run([text](QMainWindow& window) { EXPECT_EQ(window.size(), QSize(700, 500)) << text; });
    }
}

TEST_F(WindowPlaceTest, WhereNothingCanBeWrittenTheWindowClosesAllTheSame)
{
    std::filesystem::create_directories(m_file.parent_path().parent_path());
    std::ofstream(m_file.parent_path()) << "a file where a folder should be";
    run([](QMainWindow& window) { window.setGeometry(60, 50, 610, 430); });
    EXPECT_FALSE(std::filesystem::exists(m_file));
}

TEST_F(WindowPlaceTest, NobodyElseSeesTheFolder)
{
    run([](QMainWindow&) {});
    const auto mode = std::filesystem::status(m_file.parent_path()).permissions();
    EXPECT_EQ(mode, std::filesystem::perms::owner_all);
}

} // namespace
