// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

/// A search field. Escape clears it. When a search found nothing, the field is marked by a sign, a red edge and a
/// description for screen readers until its text changes.
class SearchField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(bool foundNothing READ foundNothing)

public:
    explicit SearchField(QWidget* parent = nullptr);

    bool foundNothing() const { return m_foundNothing; }

    /// Marks the field, or removes the mark when `message` is empty. `message` says in words that nothing was found.
    /// Setting a mark again announces it again.
    void setFoundNothing(const QString& message);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QAction* m_sign;
    bool m_foundNothing = false;
};
