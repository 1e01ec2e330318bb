// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QRect>

#include <filesystem>
#include <optional>

class QMainWindow;

/// `wanted`, moved and if necessary made smaller so that it and its frame lie on one of `screens`, given as the areas
/// free of panels: on the one that shows most of it, else the first. Never smaller than `least`.
QRect placedOnScreen(const QRect& wanted, const QMargins& frame, const QSize& least, const QList<QRect>& screens);

/// Where to open a window that was last at `last`: there, if one screen contains it, since there was room for its frame
/// before; else as `placedOnScreen` says.
QRect placedAgain(const QRect& last, const QMargins& frame, const QSize& least, const QList<QRect>& screens);

/// Reopens a window with the size, position and state, maximised or not, that it had when it was last closed. They are
/// kept in a file of one line; when that is missing or unreadable, the window keeps the size of its layout. Either way
/// it is fitted to the present screens.
class WindowPlace : public QObject {
    Q_OBJECT

public:
    /// Must be constructed before the window first shows.
    WindowPlace(std::filesystem::path file, QMainWindow& window);

    /// Writes the file, completely or not at all. Does nothing for a window that is not visible, which was saved when
    /// it closed.
    void save();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void restore();

    const std::filesystem::path m_file;
    QMainWindow& m_window;
};
