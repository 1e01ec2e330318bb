// SPDX-License-Identifier: MIT
#include "widgets/SaveButton.h"

#include "dates/DateFormatter.h"
#include "look/SpokenName.h"
#include "text/Localized.h"

#include <cerrno>

namespace {

/// Why the system refused, in plain words.
QString reasonOf(std::error_code error)
{
    switch (error.value()) {
    case ENOSPC:
    case EDQUOT:
        return localized("the disk is full");
    case EFBIG:
        return localized("the file is too large for the disk");
    case EROFS:
        return localized("the disk can only be read");
    case EACCES:
    case EPERM:
        return localized("the folder of the notes may not be written to");
    case ENOENT:
    case ENOTDIR:
        return localized("the folder of the notes is not there");
    default:
        return localized("the disk could not be written to");
    }
}

QString momentText(Date moment)
{
    DateFormatter formatter;
    formatter.setDateStyle(DateFormatter::Style::Medium);
    formatter.setTimeStyle(DateFormatter::Style::Short);
    return formatter.stringFromDate(moment);
}

} // namespace

SaveButton::SaveButton(QWidget* parent) : QPushButton(parent) {}

void SaveButton::showFailure(std::error_code error, Date now)
{
    if (!m_failure) {
        m_failure = {now, toolTip()};
    }
    const QString text = filled(localized("Not saved since %@: %@"), {momentText(m_failure->since), reasonOf(error)});
    setToolTip(text);
    setSpokenDescription(*this, text);
    setEnabled(true);
}

void SaveButton::endFailure()
{
    if (m_failure) {
        setToolTip(m_failure->usualToolTip);
        setAccessibleDescription(QString());
        m_failure.reset();
    }
}
