// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "calendar/HiddenNotesLine.h"
#include "calendar/MiniCalendarGrid.h"
#include "host/ClockMonitor.h"
#include "host/GlobalDefaults.h"
#include "host/ShutdownMonitor.h"
#include "look/AlphaValue.h"
#include "look/Announcer.h"
#include "look/FittingScrollArea.h"
#include "look/TableMetrics.h"
#include "store/Record.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "ui_PreferencesSheet.h"
#include "widgets/EditingKeys.h"
#include "sheets/HolidaySheet.h"
#include "widgets/SegmentedControl.h"

#include <QCoreApplication>
#include <QMainWindow>

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
            .fileName = NotesFileName,
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
            .fileName = EventsFileName,
            .name = localized("Important Dates TableView"),
            .editorName = localized("Description of %@")};
}

} // namespace

AppDelegate::AppDelegate(QMainWindow& myMainWindow, Ui::MainWindow& layout, const HostServices& host)
    : m_window(myMainWindow), m_ui(layout), m_prefsLayout(std::make_unique<Ui::PreferencesSheet>()),
      m_prefsSheet(new QDialog(&myMainWindow)), m_holidaySheet(new HolidaySheet(&myMainWindow)),
      m_announcer(new Announcer(myMainWindow)), m_host(host), m_notesList(notesListOf(layout)),
      m_datesList(datesListOf(layout)), m_folder(host.applicationSupport, DateEnvironment::clock()),
      m_draftFile(host.stateFolder, host.temporaryFolder), m_saves(m_folder, [this](const SaveResult& result) {
          QMetaObject::invokeMethod(
              this, [this, result] { saveHasEnded(result); }, Qt::QueuedConnection);
      })
{
    m_prefsLayout->setupUi(m_prefsSheet);
    setAlphaValue(*m_ui.importantDatesUSHolidays, 0); // until it is known whether they are offered here
    m_ui.hideShowSegBtn->setLabels({QString(), localized("Show All"), localized("Mini Calendar's Month"), QString()});
    m_ui.hideShowSegBtn->setTabOrderAfter(*m_ui.filterBtn);
    for (QWidget* page : {m_ui.miniCalendarPage, m_ui.weeklyViewPage, m_ui.monthlyViewPage}) {
        makeScrollable(*page);
    }
    configureTables();
    wireControls();
    wireSheets();
    wireMenu();
    wireMenuStates();
    wireServices();
    new EditingKeys(this);
    makeImportantDatesContextMenu();
    makeSendNotificationContextMenu();
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::configureTables()
{
    m_ui.notesTableView->addColumn(sortedColumn(NoteDateKey, localized("Date")));
    m_ui.notesTableView->addColumn(textColumn(NoteDataKey, localized("Note")));
    m_ui.notesTableView->setPlaceholderText(localized("No notes to show") + QLatin1Char('\n') +
                                            localized("Click a day and type"));
    m_ui.notesTableView->setDelegate(this);

    TableColumn elapsed;
    elapsed.identifier = QStringLiteral("eventTimeColID");
    elapsed.headerCell = HeaderCell(localized("Since / Until"));
    elapsed.width = elapsedColumnWidth;
    TableColumn day = sortedColumn(EventDateKey, localized("Date"));
    day.editing = TableColumn::Editing::Editable;
    day.editorFactory = [this](QWidget* parent, int row) { return makeDatePicker(parent, row); };
    m_ui.importantDatesTableView->addColumn(day);
    m_ui.importantDatesTableView->addColumn(textColumn(EventNameKey, localized("Description")));
    m_ui.importantDatesTableView->addColumn(elapsed);
    m_ui.importantDatesTableView->setLineHeight(eventLineHeight);
    m_ui.importantDatesTableView->setPlaceholderText(localized("No important dates yet") + QLatin1Char('\n') +
                                                     localized("Click “Add Date” and describe the day"));
    m_ui.importantDatesTableView->setDelegate(this);
    m_ui.tablesSplitter->setSizes({notesShare, importantDatesShare});
}

Page AppDelegate::shownPage() const
{
    return static_cast<Page>(m_ui.myTabView->currentIndex());
}

void AppDelegate::showPage(Page page)
{
    m_ui.myTabView->setCurrentIndex(static_cast<int>(page));
}
