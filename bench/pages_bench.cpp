// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "bench/LifetimeNotes.h"
#include "calendar/MonthlyGrid.h"
#include "look/Appearance.h"
#include "look/StyleRules.h"
#include "print/MonthPage.h"
#include "support/FakeHost.h"
#include "support/FixedClock.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QImage>
#include <QMainWindow>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

// How long a person waits at the pages of the week and the month, with a lifetime of notes in the list. A step has to
// fit into one frame, 16 ms; printing may take a moment.

namespace {

/// The program on 15 March 2024 with a note on every day, on page `page` of the tab view.
class Pages {
public:
    explicit Pages(int page)
    {
        DateEnvironment::setTimeZone("UTC"); // the notes' days begin at midnight UTC
        DateEnvironment::setClock(m_clock);
        layout.setupUi(&window);
        applyPalette(calmPalette(Appearance::Light), window);
        m_app.emplace(window, layout, m_host.services(m_home.path().toStdString()));
        m_app->applicationWillFinishLaunching();
        m_app->applicationDidFinishLaunching();
        m_app->notesTVData = makeLifetimeNotes();
        layout.myTabView->setCurrentIndex(page);
        paint();
    }
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;
    ~Pages()
    {
        m_app.reset();
        DateEnvironment::setClock(DateEnvironment::systemClock());
    }

    /// Alternates between a step forward and a step back.
    void step(QAbstractButton* back, QAbstractButton* forward)
    {
        m_isForward = !m_isForward;
        (m_isForward ? forward : back)->click();
    }
    void stepMonth() { step(layout.monthlyViewBackBtn, layout.monthlyViewForwardBtn); }
    void stepWeek() { step(layout.weeklyViewBackWeek, layout.weeklyViewForwardWeek); }

    void paint()
    {
        QCoreApplication::sendPostedEvents();
        QImage picture(window.size(), QImage::Format_ARGB32_Premultiplied);
        window.render(&picture);
        benchmark::DoNotOptimize(picture);
    }

    QMainWindow window;
    Ui::MainWindow layout;

private:
    FixedClock m_clock{dateFromUnixSeconds(1710491400)}; // 15 March 2024, 08:30 UTC
    QTemporaryDir m_home;
    FakeHost m_host;
    std::optional<AppDelegate> m_app;
    bool m_isForward = false;
};

constexpr int weeklyPage = 1;
constexpr int monthlyPage = 2;

void stepMonth(benchmark::State& state)
{
    Pages pages(monthlyPage);
    for (auto _ : state) {
        pages.stepMonth();
    }
}

void stepMonthAndPaint(benchmark::State& state)
{
    Pages pages(monthlyPage);
    for (auto _ : state) {
        pages.stepMonth();
        pages.paint();
    }
}

void stepWeek(benchmark::State& state)
{
    Pages pages(weeklyPage);
    for (auto _ : state) {
        pages.stepWeek();
    }
}

void stepWeekAndPaint(benchmark::State& state)
{
    Pages pages(weeklyPage);
    for (auto _ : state) {
        pages.stepWeek();
        pages.paint();
    }
}

void makePdf(benchmark::State& state)
{
    Pages pages(monthlyPage);
    const MonthPage page = pages.layout.monthlyGrid->page();
    qsizetype bytes = 0;
    for (auto _ : state) {
        bytes = pdfOf(page, {.width = 210, .height = 297}).size();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

constexpr auto unit = benchmark::kMillisecond;
BENCHMARK(stepMonth)->Unit(unit);
BENCHMARK(stepMonthAndPaint)->Unit(unit);
BENCHMARK(stepWeek)->Unit(unit);
BENCHMARK(stepWeekAndPaint)->Unit(unit);
BENCHMARK(makePdf)->Unit(unit);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    applyStyle();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
