// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "look/Appearance.h"
#include "look/StyleRules.h"
#include "store/Record.h"
#include "support/FakeHost.h"
#include "table/TableView.h"
#include "ui_MainWindow.h"
#include "widgets/DatePicker.h"

#include <QApplication>
#include <QImage>
#include <QMainWindow>
#include <QScrollBar>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

// How long a person waits at a table of a hundred years of important dates. Each step has to fit into one frame, 16 ms.

namespace {

constexpr int dateCount = 2'000;
constexpr int dateColumn = 0;
constexpr Date::duration daysBetween = std::chrono::hours(24) * 18;

/// The program's window with a home folder of its own and `dateCount` important dates up to today.
struct Page {
    Page()
    {
        layout.setupUi(&window);
        applyPalette(calmPalette(Appearance::Light), window);
        delegate = std::make_unique<AppDelegate>(window, layout, host.services(home.path().toStdString()));
        delegate->applicationWillFinishLaunching();
        delegate->applicationDidFinishLaunching();
        for (int i = 0; i < dateCount; ++i) {
            delegate->eventsTVData->append(
                makeEventRecord(DateEnvironment::now() - i * daysBetween,
                                i % 7 == 0 ? "Somebody's birthday\nbring flowers" : "Somebody's birthday"));
        }
        table().reloadData();
        paint();
    }

    TableView& table() { return *layout.importantDatesTableView; }
    void paint() { table().render(&image); }

    QTemporaryDir home;
    FakeHost host;
    QMainWindow window;
    Ui::MainWindow layout;
    std::unique_ptr<AppDelegate> delegate;
    QImage image{800, 600, QImage::Format_RGB32};
};

void reloadAndPaint(benchmark::State& state)
{
    Page page;
    for (auto _ : state) {
        page.table().reloadData();
        page.paint();
    }
}

void scrollByAPage(benchmark::State& state)
{
    Page page;
    QScrollBar& bar = *page.table().verticalScrollBar();
    for (auto _ : state) {
        bar.setValue(bar.value() + bar.pageStep() < bar.maximum() ? bar.value() + bar.pageStep() : 0);
        page.paint();
    }
}

void openADatePicker(benchmark::State& state)
{
    Page page;
    for (auto _ : state) {
        page.table().editColumn(dateColumn, 1);
        page.paint();
        page.table().endEditing();
    }
}

void pickAnotherDay(benchmark::State& state)
{
    Page page;
    page.table().editColumn(dateColumn, 1);
    auto* picker = qobject_cast<DatePicker*>(page.table().viewAt(dateColumn, 1));
    for (auto _ : state) {
        picker->chooseDay(picker->day().addDays(picker->day().day() % 2 == 0 ? 1 : -1));
        page.paint();
    }
}

void addARow(benchmark::State& state)
{
    Page page;
    for (auto _ : state) {
        page.delegate->addRowToImportDates();
        page.paint();
    }
}

} // namespace

BENCHMARK(reloadAndPaint)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollByAPage)->Unit(benchmark::kMillisecond);
BENCHMARK(openADatePicker)->Unit(benchmark::kMillisecond);
BENCHMARK(pickAnotherDay)->Unit(benchmark::kMillisecond);
BENCHMARK(addARow)->Unit(benchmark::kMillisecond)->Iterations(200);

int main(int argc, char** argv)
{
    const QTemporaryDir settings;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    const QApplication application(argc, argv);
    applyStyle();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
