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

    /// Called on the main thread when a sheet's turn has come, right before it shows.
    using Preparation = std::function<void()>;

    /// The queue of `window`, made at first use and owned by the window.
    static SheetQueue& of(QWidget& window);

    /// Shows `sheet` when its turn comes; nothing happens when it is shown or waits already. The caller keeps the
    /// ownership; a sheet that is deleted leaves the queue. What goes with a sheet and would change what the sheets
    /// before it ask about belongs in `preparation`.
    void begin(QDialog& sheet, Completion completion = {}, Preparation preparation = {});

    /// The sheet that is shown or the next to be; null when none is shown and none waits.
    QDialog* current() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        QDialog* sheet;
        Completion completion;
        Preparation preparation;
    };

    explicit SheetQueue(QWidget& window);
    void showNext();
    void attach();
    void ended(int result);
    void forget(const QObject* sheet);

    QWidget& m_window;
    std::deque<Entry> m_entries; ///< the front one is shown
};
