// SPDX-License-Identifier: MIT
#include "support/AppFixture.h"

#include "calendar/MiniCalendarGrid.h"
#include "dates/DateUtilities.h"
#include "look/StyleRules.h"
#include "plist/PropertyList.h"
#include "store/Record.h"
#include "table/CellEditor.h"

#include <QCoreApplication>
#include <QTest>

#include <fstream>
#include <iterator>

namespace {

void putFile(const std::filesystem::path& file, const Table& table)
{
    std::ofstream(file, std::ios::binary) << PropertyList::writeXml(table);
}

std::optional<Table> tableIn(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        return std::nullopt;
    }
    return PropertyList::readTable(std::string(std::istreambuf_iterator(stream), {}));
}

} // namespace

AppFixture::AppFixture()
{
    std::filesystem::create_directories(dataFolder());
}

AppFixture::~AppFixture()
{
    app.reset();
    ui.reset();
    window.reset();
}

std::filesystem::path AppFixture::dataFolder() const
{
    return std::filesystem::path(home.path().toStdString()) / "TALV";
}

void AppFixture::putNotes(const Table& notes) const
{
    putFile(notesFile(), notes);
}

void AppFixture::putEvents(const Table& events) const
{
    putFile(eventsFile(), events);
}

std::optional<Table> AppFixture::notesOnDisk()
{
    app->waitForSaves();
    return tableIn(notesFile());
}

std::optional<Table> AppFixture::eventsOnDisk()
{
    app->waitForSaves();
    return tableIn(eventsFile());
}

void AppFixture::make()
{
    app.reset();
    window = std::make_unique<QMainWindow>();
    ui = std::make_unique<Ui::MainWindow>();
    ui->setupUi(window.get());
    applyStyleRules(*window);
    app = std::make_unique<AppDelegate>(*window, *ui, host.services(home.path().toStdString()));
}

void AppFixture::start()
{
    make();
    app->applicationWillFinishLaunching();
    app->applicationDidFinishLaunching();
    runQueued();
}

void AppFixture::quit()
{
    app->applicationWillTerminate();
    app.reset();
    window.reset();
}

void AppFixture::runQueued()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

Alert* AppFixture::alert()
{
    runQueued();
    for (Alert* each : window->findChildren<Alert*>()) {
        if (each->isVisible()) {
            return each;
        }
    }
    return nullptr;
}

void AppFixture::answer(int response)
{
    Alert* shown = alert();
    ASSERT_TRUE(shown) << "no alert is up";
    shown->buttons().at(response - Alert::firstButtonReturn)->click();
    runQueued();
}

void AppFixture::clickReminder(const Value& note)
{
    NotificationContent content;
    content.userInfo = *note.dictionary();
    app->respondWithContent(content);
    runQueued();
}

Date AppFixture::day(int year, int month, int dayOfMonth)
{
    return DateUtilities::dateFromYear(year, month, dayOfMonth);
}

Value AppFixture::note(int year, int month, int dayOfMonth, const std::string& text)
{
    return makeNoteRecord(day(year, month, dayOfMonth), text);
}

Value AppFixture::event(int year, int month, int dayOfMonth, const std::string& name)
{
    return makeEventRecord(day(year, month, dayOfMonth), name);
}

DayButton& AppFixture::dayButton(int dayOfMonth)
{
    const QString title = QString::number(dayOfMonth);
    for (DayButton* button : ui->miniCalendarGrid->dayButtons()) {
        if (button->title() == title) {
            return *button;
        }
    }
    qFatal("the mini calendar does not show day %d", dayOfMonth);
}

QStringList AppFixture::shownRows()
{
    QStringList rows;
    const TableView& table = *ui->notesTableView;
    for (int row = 0; row < table.numberOfRows(); ++row) {
        QStringList cells;
        for (const TableColumn& column : table.tableColumns()) {
            cells.append(app->viewForTableColumn(table, column, row).text);
        }
        rows.append(cells.join(QStringLiteral(" | ")));
    }
    return rows;
}

void AppFixture::typeNote(int row, const QString& text)
{
    ui->notesTableView->editColumn(textColumn, row);
    auto* editor = qobject_cast<CellEditor*>(ui->notesTableView->viewAt(textColumn, row));
    ASSERT_TRUE(editor) << "no edit began in row " << row;
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, text);
    ui->notesTableView->endEditing();
    runQueued();
}
