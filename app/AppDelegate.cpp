// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "calendar/HiddenNotesLine.h"
#include "look/AlphaValue.h"
#include "look/FittingScrollArea.h"
#include "look/TableMetrics.h"
#include "sheets/HolidaySheet.h"
#include "sheets/PreferencesSheet.h"
#include "store/Record.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/DateNotesMenu.h"
#include "widgets/EditingKeys.h"
#include "widgets/ReminderMenu.h"
#include "widgets/SaveButton.h"
#include "widgets/SegmentedControl.h"

#include <QMainWindow>

#include <functional>
#include <utility>

namespace {

constexpr double dateColumnWidth = 176;
constexpr double elapsedColumnWidth = 208;

// How the two tables share the height of the page.
constexpr int notesShare = 600;
constexpr int importantDatesShare = 400;

/// A column of fixed width that sorts by what it shows.
TableColumn sortedColumn(std::string_view key, const QString& title)
{
    TableColumn column;
    column.identifier = QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
    column.headerCell = HeaderCell(title);
    column.width = dateColumnWidth;
    column.sortDescriptorPrototype = SortDescriptor{.key = std::string(key)};
    return column;
}

/// A column of text edited in place, as wide as the table allows.
TableColumn textColumn(std::string_view key, const QString& title)
{
    TableColumn column = sortedColumn(key, title);
    column.stretches = true;
    column.editing = TableColumn::Editing::Editable;
    return column;
}

ListBinding notesListOf(const Ui::MainWindow& layout)
{
    return {.kind = ListKind::Notes,
            .view = *layout.notesTableView,
            .saveButton = *layout.noteEntryListSaveBtn,
            .deleteButton = *layout.deleteRowFromListBtn,
            .lineHeight = noteLineHeight,
            .name = localized("Notes TableView"),
            .editorName = localized("Note of %@")};
}

ListBinding datesListOf(const Ui::MainWindow& layout)
{
    return {.kind = ListKind::ImportantDates,
            .view = *layout.importantDatesTableView,
            .saveButton = *layout.importantDateSaveBtn,
            .deleteButton = *layout.deleteRowFromImpDateListBtn,
            .lineHeight = eventLineHeight,
            .name = localized("Important Dates TableView"),
            .editorName = localized("Description of %@")};
}

void configureNotesTable(TableView& table)
{
    table.addColumn(sortedColumn(NoteDateKey, localized("Date")));
    table.addColumn(textColumn(NoteDataKey, localized("Note")));
    table.setPlaceholderText(localized("No notes to show") + QLatin1Char('\n') + localized("Click a day and type"));
}

void configureDatesTable(TableView& table, std::function<QWidget*(QWidget*, int)> makeDatePicker)
{
    TableColumn day = sortedColumn(EventDateKey, localized("Date"));
    day.editing = TableColumn::Editing::Editable;
    day.editorFactory = std::move(makeDatePicker);
    TableColumn elapsed;
    elapsed.identifier = QStringLiteral("eventTimeColID");
    elapsed.headerCell = HeaderCell(localized("Since / Until"));
    elapsed.width = elapsedColumnWidth;
    table.addColumn(day);
    table.addColumn(textColumn(EventNameKey, localized("Description")));
    table.addColumn(elapsed);
    table.setLineHeight(eventLineHeight);
    table.setPlaceholderText(localized("No important dates yet") + QLatin1Char('\n') +
                             localized("Click “Add Date” and describe the day"));
}

template <typename Menu> Menu* contextMenu(QWidget& window, const QString& name)
{
    auto* menu = new Menu(&window);
    menu->setObjectName(name);
    return menu;
}

} // namespace

AppDelegate::AppDelegate(QMainWindow& myMainWindow, Ui::MainWindow& layout, const HostServices& host)
    : m_window(myMainWindow), m_ui(layout), m_host(host), m_announcer(myMainWindow, layout),
      m_prefsSheet(new PreferencesSheet(&myMainWindow)), m_holidaySheet(new HolidaySheet(&myMainWindow)),
      m_sendNotificationContextMenu(
          contextMenu<ReminderMenu>(myMainWindow, QStringLiteral("sendNotificationContextMenu"))),
      m_importantDatesContextMenu(
          contextMenu<DateNotesMenu>(myMainWindow, QStringLiteral("importantDatesContextMenu"))),
      m_notesList(notesListOf(layout)), m_datesList(datesListOf(layout)),
      m_store(
          m_book,
          {.applicationSupport = host.applicationSupport, .state = host.stateFolder, .temporary = host.temporaryFolder},
          [this] { return editedNote(); })
{
    setAlphaValue(*m_ui.importantDatesUSHolidays, 0); // until it is known whether they are offered here
    m_ui.hideShowSegBtn->setLabels({QString(), localized("Show All"), localized("Mini Calendar's Month"), QString()});
    m_ui.hideShowSegBtn->setTabOrderAfter(*m_ui.filterBtn);
    for (QWidget* page : {m_ui.miniCalendarPage, m_ui.weeklyViewPage, m_ui.monthlyViewPage}) {
        makeScrollable(*page);
    }
    configureNotesTable(*m_ui.notesTableView);
    configureDatesTable(*m_ui.importantDatesTableView,
                        [this](QWidget* parent, int row) { return makeDatePicker(parent, row); });
    m_ui.notesTableView->setDelegate(this);
    m_ui.importantDatesTableView->setDelegate(this);
    m_ui.tablesSplitter->setSizes({notesShare, importantDatesShare});
    m_minuteTimer.setSingleShot(true);
    m_minuteTimer.setTimerType(Qt::PreciseTimer);
    wire();
    new EditingKeys(this);
}

AppDelegate::~AppDelegate() = default;

Page AppDelegate::shownPage() const
{
    return static_cast<Page>(m_ui.myTabView->currentIndex());
}

void AppDelegate::showPage(Page page)
{
    m_ui.myTabView->setCurrentIndex(static_cast<int>(page));
}
