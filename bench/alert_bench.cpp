// SPDX-License-Identifier: MIT
#include "look/Appearance.h"
#include "look/StyleRules.h"
#include "sheets/Alert.h"

#include <QApplication>
#include <QMainWindow>
#include <benchmark/benchmark.h>

// How long a person waits for an alert. It must appear at once, however long its text is.

namespace {

void showAlert(benchmark::State& state)
{
    QMainWindow window;
    window.resize(1080, 760);
    applyPalette(calmPalette(Appearance::Light), window);
    window.show();
    const QString body = QStringLiteral("a line of the day's note, as long as most\n").repeated(state.range(0));
    for (auto _ : state) {
        auto alert = std::make_unique<Alert>();
        alert->setMessageText(QStringLiteral("Velumora Reminder"));
        alert->setInformativeText(body);
        alert->addButton(QStringLiteral("OK"));
        Alert* shown = alert.get();
        Alert::beginSheet(std::move(alert), window);
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(shown->grab());
        shown->done(Alert::firstButtonReturn);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(showAlert)->Arg(1)->Arg(200)->Arg(20'000)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    applyStyle();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
