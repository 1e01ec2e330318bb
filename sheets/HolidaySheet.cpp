// SPDX-License-Identifier: MIT
#include "sheets/HolidaySheet.h"

#include "dates/Holidays.h"
#include "ui_HolidaySheet.h"

#include <algorithm>

namespace {

// A box has an even tag, its field the next one.
constexpr int firstTag = 200;
constexpr int tagsPerHoliday = 2;

int tagOf(const QWidget& control)
{
    return control.property("tag").toInt();
}

template <typename Control> Control* viewWithTag(const QWidget& sheet, int tag)
{
    const QList<Control*> controls = sheet.findChildren<Control*>();
    const auto found = std::ranges::find_if(controls, [tag](const Control* control) { return tagOf(*control) == tag; });
    return found != controls.end() ? *found : nullptr;
}

} // namespace

HolidaySheet::HolidaySheet(QWidget* parent) : QDialog(parent), m_layout(std::make_unique<Ui::HolidaySheet>())
{
    m_layout->setupUi(this);
}

HolidaySheet::~HolidaySheet() = default;

QCheckBox& HolidaySheet::box(int holiday) const
{
    return *viewWithTag<QCheckBox>(*this, firstTag + tagsPerHoliday * holiday);
}

QLabel& HolidaySheet::dateField(int holiday) const
{
    return *viewWithTag<QLabel>(*this, firstTag + tagsPerHoliday * holiday + 1);
}

std::optional<int> HolidaySheet::holidayOf(const QCheckBox& box) const
{
    for (int holiday = 0; holiday < Holidays::count; ++holiday) {
        if (&this->box(holiday) == &box) {
            return holiday;
        }
    }
    return std::nullopt;
}

QLabel* HolidaySheet::fieldBeside(const QCheckBox& box) const
{
    return viewWithTag<QLabel>(*this, tagOf(box) + 1);
}

bool HolidaySheet::isAnyTicked() const
{
    const QList<QCheckBox*> boxes = findChildren<QCheckBox*>();
    return std::ranges::any_of(boxes, [this](const QCheckBox* box) { return box->isChecked() && holidayOf(*box); });
}

QPushButton& HolidaySheet::addDatesButton() const
{
    return *m_layout->addDatesBtn;
}

QPushButton& HolidaySheet::addDatesAndNotesButton() const
{
    return *m_layout->addDatesAndNotesBtn;
}

QPushButton& HolidaySheet::cancelButton() const
{
    return *m_layout->cancelBtn;
}
