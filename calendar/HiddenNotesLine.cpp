// SPDX-License-Identifier: MIT
#include "calendar/HiddenNotesLine.h"

#include "text/Localized.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

HiddenNotesLine::HiddenNotesLine(QWidget* parent)
    : QWidget(parent), m_text(new QLabel(this)), m_showAll(new QPushButton(localized("Show All Notes"), this))
{
    constexpr int gap = 12;
    m_text->setTextFormat(Qt::PlainText);
    m_text->setProperty("secondary", true);
    m_showAll->setProperty("controlSize", QStringLiteral("small"));
    m_showAll->setToolTip(localized("Show every note in the list, the week and the month"));
    connect(m_showAll, &QPushButton::clicked, this, &HiddenNotesLine::showAllPressed);

    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(gap);
    line->addWidget(m_text);
    line->addWidget(m_showAll);
    line->addStretch(1);
    hide();
}

void HiddenNotesLine::setCounts(const QString& format, std::size_t shown, std::size_t all)
{
    setText(shown == all ? QString() : filled(format, {QString::number(shown), QString::number(all)}));
}

/// An empty text takes the line out of sight.
void HiddenNotesLine::setText(const QString& text)
{
    if (text == m_text->text()) {
        return; // a redraw without a change is not announced
    }
    m_text->setText(text);
    m_showAll->setAccessibleDescription(text); // read with the button, which the tab key reaches
    setVisible(!text.isEmpty());
}
