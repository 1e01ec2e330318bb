// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

/// What stands above a table's column: its title, and the font that every column header has.
class HeaderCell {
public:
    HeaderCell() = default;
    explicit HeaderCell(QString title) : m_title(std::move(title)) {}

    const QString& title() const { return m_title; }

    /// The bold system font of 13 points, always.
    static QFont font();

private:
    QString m_title;
};
