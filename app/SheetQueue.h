// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QObject>

#include <deque>
#include <functional>

/// The sheets of one window: one is shown, attached to the top of the window and modal to it; the others wait their
/// turn.
class SheetQueue : public QObject {
    Q_OBJECT

public:
    /// Called on the main thread with the sheet's result once it is out of sight.
    using Completion = std::function<void(int result)>;

    /// The queue of `window`, made at first use and owned by the window.
    static SheetQueue& of(QWidget& window);

    /// Shows `sheet` when its turn comes; nothing happens when it is shown or waits already. The caller keeps the
    /// ownership; a sheet that is deleted leaves the queue.
    void begin(QDialog& sheet, Completion completion = {});

    /// The sheet that is shown, null when there is none.
    QDialog* current() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        QDialog* sheet;
        Completion completion;
    };

    explicit SheetQueue(QWidget& window);
    void showNext();
    void attach();
    void ended(int result);
    void forget(const QObject* sheet);

    QWidget& m_window;
    std::deque<Entry> m_entries; ///< the front one is shown
};
