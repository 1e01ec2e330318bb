// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

/// Information about the program: its icon, name, version, licence and web page. The Escape key closes it.
class AboutSheet : public QDialog {
    Q_OBJECT

public:
    AboutSheet(const QString& version, const QUrl& webPage, QWidget* parent = nullptr);

Q_SIGNALS:
    /// The web page should open. The sheet is closed by then.
    void webPageWanted();
};
