// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QPushButton>

#include <optional>
#include <system_error>

/// The save button of a list. After a save that failed it can be pressed, and its tool tip says since when the list is
/// not saved and why: no message comes up in the middle of a sentence.
class SaveButton : public QPushButton {
    Q_OBJECT

public:
    explicit SaveButton(QWidget* parent = nullptr);

    bool showsFailure() const { return m_failure.has_value(); }

    /// A save failed at `now`. Of several failures in a row the first says since when.
    void showFailure(std::error_code error, Date now);

    /// Everything is saved again. Does nothing when no failure is shown.
    void endFailure();

private:
    struct Failure {
        Date since;
        QString usualToolTip;
    };
    std::optional<Failure> m_failure;
};
