// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QObject>

#include <deque>
#include <functional>

/// The sheets of a window: one is shown, attached to the top of the window and modal to it; the others wait their turn.
class SheetQueue : public QObject {
    Q_OBJECT

public:
    /// Called on the main thread with the sheet's result, once it is hidden.
    using Completion = std::function<void(int result)>;

    /// Called on the main thread when a sheet's turn comes, just before it is shown.
    using Preparation = std::function<void()>;

    /// The queue of `window`, created on first use and owned by the window.
    static SheetQueue& of(QWidget& window);

    /// Shows `sheet` when its turn comes; does nothing when it is shown or waits already. The caller keeps ownership; a
    /// deleted sheet leaves the queue. Anything that would change what earlier sheets ask about belongs in
    /// `preparation`.
    void begin(QDialog& sheet, Completion completion = {}, Preparation preparation = {});

    /// The sheet that is shown or comes next; null when there is none.
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
    std::deque<Entry> m_entries; ///< the first one is shown
};
