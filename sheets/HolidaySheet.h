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

/// Offers the holidays, numbered as in Holidays.h: a box for each, and next to it a field for its date.
class HolidaySheet : public QDialog {
    Q_OBJECT

public:
    explicit HolidaySheet(QWidget* parent);
    ~HolidaySheet() override;

    QCheckBox& box(int holiday) const;
    QLabel& dateField(int holiday) const;

    /// The holiday of a box; nullopt for any other.
    std::optional<int> holidayOf(const QCheckBox& box) const;

    /// The field that stands next to a box; null when there is none.
    QLabel* fieldBeside(const QCheckBox& box) const;

    bool isAnyTicked() const; ///< a holiday, that is

    QPushButton& addDatesButton() const;
    QPushButton& addDatesAndNotesButton() const;
    QPushButton& cancelButton() const;

private:
    std::unique_ptr<Ui::HolidaySheet> m_layout;
};
