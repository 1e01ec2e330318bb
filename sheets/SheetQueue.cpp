// SPDX-License-Identifier: MIT
#include "sheets/SheetQueue.h"

#include <QEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace {

const QString queueName = QStringLiteral("sheetQueue");

/// Where the window's content begins, below its menu bar.
int contentTop(QWidget& window)
{
    const auto* mainWindow = qobject_cast<QMainWindow*>(&window);
    const QWidget* menu = mainWindow ? mainWindow->menuWidget() : nullptr;
    return menu && menu->isVisible() ? menu->geometry().bottom() + 1 : 0;
}

} // namespace

SheetQueue& SheetQueue::of(QWidget& window)
{
    auto* queue = window.findChild<SheetQueue*>(queueName, Qt::FindDirectChildrenOnly);
    return queue ? *queue : *new SheetQueue(window);
}

SheetQueue::SheetQueue(QWidget& window) : QObject(&window), m_window(window)
{
    setObjectName(queueName);
    window.installEventFilter(this);
}

void SheetQueue::begin(QDialog& sheet, Completion completion, Preparation preparation)
{
    if (std::ranges::find(m_entries, &sheet, &Entry::sheet) != m_entries.end()) {
        return;
    }
    m_entries.push_back({&sheet, std::move(completion), std::move(preparation)});
    connect(&sheet, &QObject::destroyed, this, &SheetQueue::forget);
    if (m_entries.size() == 1) {
        showNext();
    }
}

QDialog* SheetQueue::current() const
{
    return m_entries.empty() ? nullptr : m_entries.front().sheet;
}

bool SheetQueue::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
        attach();
    }
    return QObject::eventFilter(watched, event);
}

void SheetQueue::showNext()
{
    if (m_entries.empty() || m_entries.front().sheet->isVisible()) {
        return;
    }
    if (const Preparation prepare = std::exchange(m_entries.front().preparation, {})) {
        prepare();
    }
    QDialog& sheet = *m_entries.front().sheet;
    sheet.setParent(&m_window, Qt::Sheet | Qt::FramelessWindowHint);
    connect(&sheet, &QDialog::finished, this, &SheetQueue::ended, Qt::SingleShotConnection);
    attach();
    sheet.open(); // modal to the window
    attach();
}

void SheetQueue::attach()
{
    QDialog* sheet = current();
    if (!sheet) {
        return;
    }
    // At its preferred size, but no larger than the window.
    sheet->setMaximumSize(m_window.size() - QSize(0, contentTop(m_window)));
    sheet->resize(sheet->sizeHint());
    const int x = (m_window.width() - sheet->width()) / 2;
    sheet->move(m_window.mapToGlobal(QPoint(std::max(x, 0), contentTop(m_window))));
}

void SheetQueue::ended(int result)
{
    const Entry entry = std::move(m_entries.front());
    m_entries.pop_front();
    disconnect(entry.sheet, &QObject::destroyed, this, nullptr);
    if (entry.completion) {
        entry.completion(result);
    }
    // Deferred to the event loop, so that a completion that shows a sheet of its own does not nest.
    QMetaObject::invokeMethod(this, &SheetQueue::showNext, Qt::QueuedConnection);
}

void SheetQueue::forget(const QObject* sheet)
{
    std::erase_if(m_entries, [sheet](const Entry& entry) { return entry.sheet == sheet; });
    QMetaObject::invokeMethod(this, &SheetQueue::showNext, Qt::QueuedConnection);
}
