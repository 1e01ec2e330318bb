// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

/// The header of a table's column: its title, and the font that all headers share.
class HeaderCell {
public:
    HeaderCell() = default;
    explicit HeaderCell(QString title) : m_title(std::move(title)) {}

    const QString& title() const { return m_title; }

    /// The bold system font at 13 points.
    static QFont font();

private:
    QString m_title;
};
