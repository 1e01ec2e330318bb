// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "ui_MainWindow.h"
#include "widgets/EditAbilities.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>

#include <functional>
#include <utility>
#include <vector>

namespace {

/// An entry of a menu, and whether it can do something now.
using Entry = std::pair<QAction*, std::function<bool()>>;

/// Disables what can do nothing while the menu is open. Closed, all is enabled: a key tries, and does what it can.
void keepHonest(const QMenu& menu, const std::vector<Entry>& entries)
{
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [entries] {
        for (const auto& [action, canAct] : entries) {
            action->setEnabled(canAct());
        }
    });
    QObject::connect(&menu, &QMenu::aboutToHide, &menu, [entries] {
        for (const auto& [action, canAct] : entries) {
            action->setEnabled(true);
        }
    });
}

} // namespace

void AppDelegate::connectMenuStates()
{
    const auto follows = [](QAction* action, const QAbstractButton* button) {
        return Entry{action, [button] { return button->isEnabled(); }};
    };
    const auto isNotOn = [this](QAction* action, const QWidget* page) {
        return Entry{action, [this, page] { return m_ui.myTabView->currentWidget() != page; }};
    };
    const auto ifText = [this](QAction* action, bool EditAbilities::*ability) {
        return Entry{action, [this, ability] { return editAbilitiesOf(focusedControl()).*ability; }};
    };
    keepHonest(*m_ui.fileMenu,
               {{m_ui.saveAction,
                 [this] { return m_ui.noteEntryListSaveBtn->isEnabled() || m_ui.importantDateSaveBtn->isEnabled(); }}});
    keepHonest(*m_ui.editMenu,
               {ifText(m_ui.undoAction, &EditAbilities::undo), ifText(m_ui.redoAction, &EditAbilities::redo),
                ifText(m_ui.cutAction, &EditAbilities::cut), ifText(m_ui.copyAction, &EditAbilities::copy),
                ifText(m_ui.pasteAction, &EditAbilities::paste),
                ifText(m_ui.selectAllAction, &EditAbilities::selectAll),
                follows(m_ui.deleteNoteAction, m_ui.deleteRowFromListBtn),
                follows(m_ui.addDateAction, m_ui.addImportantDateBtn),
                follows(m_ui.deleteDateAction, m_ui.deleteRowFromImpDateListBtn)});
    keepHonest(*m_ui.viewMenu, {isNotOn(m_ui.miniCalendarPageAction, m_ui.myTabView->widget(0)),
                                isNotOn(m_ui.weeklyViewPageAction, m_ui.myTabView->widget(1)),
                                isNotOn(m_ui.monthlyViewPageAction, m_ui.myTabView->widget(2)),
                                follows(m_ui.previousNotesAction, m_ui.noteEntryPrevNotesBtn),
                                follows(m_ui.nextNotesAction, m_ui.noteEntryNextNotesBtn)});
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* former) {
        if (former && former->window() == &m_window && former != m_window.menuBar()) {
            m_lastFocusedControl = former;
        }
    });
}

/// While the menu bar has the keyboard, the control that had it before.
QWidget* AppDelegate::focusedControl() const
{
    QWidget* focused = m_window.focusWidget();
    return focused == m_window.menuBar() ? m_lastFocusedControl.data() : focused;
}
