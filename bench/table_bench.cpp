// SPDX-License-Identifier: MIT
#include "bench/LifetimeNotes.h"
#include "look/TableMetrics.h"
#include "notes/NoteQueries.h"
#include "store/Record.h"
#include "table/CellEditor.h"
#include "table/TableView.h"
#include "table/TableViewDelegate.h"
#include "text/TextLines.h"

#include <QApplication>
#include <QImage>
#include <QScrollBar>
#include <benchmark/benchmark.h>

// How long a person waits at a table of a lifetime of notes. Each step has to fit into one frame, 16 ms.

namespace {

constexpr int noteColumn = 1;

/// The notes table's delegate without the rest of the application.
class Notes : public TableViewDelegate {
public:
    explicit Notes(Table rows) : m_rows(std::move(rows)) {}

    int numberOfRowsInTableView(const TableView& /*tableView*/) override { return static_cast<int>(m_rows.size()); }

    CellView viewForTableColumn(const TableView& /*tableView*/, const TableColumn& column, int row) override
    {
        if (m_typedRow == row && column.identifier == u"note") {
            return {m_typed, {}};
        }
        return {column.identifier == u"note" ? QString::fromStdString(text(row)) : QStringLiteral("Thu, Feb 29, 2024"),
                {}};
    }

    double heightOfRow(const TableView& /*tableView*/, int row) override
    {
        const std::size_t lines = m_typedRow == row ? countOfLines(m_typed.toStdString()) : countOfLines(text(row));
        return static_cast<double>(lines) * noteLineHeight;
    }

    void controlTextDidChange(QWidget& field) override
    {
        m_typedRow = table->rowForView(field);
        m_typed = dynamic_cast<CellEditor&>(field).text();
        table->noteHeightOfRowChanged(m_typedRow);
    }

    TableView* table = nullptr;

private:
    std::string_view text(int row) const { return *textOf(m_rows.at(row), NoteDataKey); }

    Table m_rows;
    QString m_typed;
    int m_typedRow = -1;
};

/// A table of notes in a window of 800 x 600 points.
struct Page {
    Page() : notes(makeLifetimeNotes())
    {
        TableColumn date;
        date.identifier = QStringLiteral("date");
        table.addColumn(date);
        TableColumn note;
        note.identifier = QStringLiteral("note");
        note.stretches = true;
        note.editing = TableColumn::Editing::Editable;
        table.addColumn(note);
        table.resize(800, 600);
        notes.table = &table;
        table.setDelegate(&notes);
        table.show();
        paint();
    }
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;
    ~Page() { table.setDelegate(nullptr); }

    void paint() { table.render(&image); }

    Notes notes;
    TableView table;
    QImage image{800, 600, QImage::Format_RGB32};
};

void reloadAndPaint(benchmark::State& state)
{
    Page page;
    for (auto _ : state) {
        page.table.reloadData();
        page.paint();
    }
}

void scrollByAPage(benchmark::State& state)
{
    Page page;
    QScrollBar& bar = *page.table.verticalScrollBar();
    for (auto _ : state) {
        bar.setValue(bar.value() + bar.pageStep() < bar.maximum() ? bar.value() + bar.pageStep() : 0);
        page.paint();
    }
}

void selectTheLastRow(benchmark::State& state)
{
    Page page;
    for (auto _ : state) {
        const bool atEnd = page.table.selectedRow() > 0;
        page.table.chooseRow(atEnd ? 0 : page.table.numberOfRows() - 1);
        page.paint();
    }
}

void typeAKey(benchmark::State& state)
{
    Page page;
    page.table.editColumn(noteColumn, 0);
    auto* const editor = qobject_cast<CellEditor*>(page.table.viewAt(noteColumn, 0));
    int typed = 0;
    for (auto _ : state) {
        editor->insertPlainText(++typed % 50 == 0 ? QStringLiteral("\n") : QStringLiteral("x"));
        page.paint();
    }
}

void changeOneRowHeight(benchmark::State& state)
{
    Page page;
    for (auto _ : state) {
        page.table.noteHeightOfRowChanged(lifetimeNotes / 2);
    }
}

} // namespace

BENCHMARK(reloadAndPaint)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollByAPage)->Unit(benchmark::kMillisecond);
BENCHMARK(selectTheLastRow)->Unit(benchmark::kMillisecond);
BENCHMARK(typeAKey)->Unit(benchmark::kMillisecond);
BENCHMARK(changeOneRowHeight)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
