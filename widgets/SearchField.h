// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

/// The field of a search. Escape empties it. One that found nothing is marked by a sign in the field, a red edge and a
/// description that screen readers tell, until its text changes.
class SearchField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(bool foundNothing READ foundNothing)

public:
    explicit SearchField(QWidget* parent = nullptr);

    bool foundNothing() const { return m_foundNothing; }

    /// Marks the field or takes the mark away. `message` says in words that nothing was found; empty takes it away. A
    /// mark that is set once more is told once more.
    void setFoundNothing(const QString& message);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QAction* m_sign;
    bool m_foundNothing = false;
};
