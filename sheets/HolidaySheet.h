// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <memory>
#include <optional>

class QCheckBox;
class QLabel;
class QPushButton;

namespace Ui {
class HolidaySheet;
}

/// Offers the holidays, numbered as in Holidays.h: a box for each, and beside it a field for its date.
class HolidaySheet : public QDialog {
    Q_OBJECT

public:
    explicit HolidaySheet(QWidget* parent);
    ~HolidaySheet() override;

    QCheckBox& box(int holiday) const;
    QLabel& dateField(int holiday) const;

    /// The holiday of a box; nullopt when it is not a holiday's.
    std::optional<int> holidayOf(const QCheckBox& box) const;

    /// The field beside a box; null when there is none.
    QLabel* fieldBeside(const QCheckBox& box) const;

    bool isAnyTicked() const; ///< whether any holiday's box is ticked

    QPushButton& addDatesButton() const;
    QPushButton& addDatesAndNotesButton() const;
    QPushButton& cancelButton() const;

private:
    std::unique_ptr<Ui::HolidaySheet> m_layout;
};
