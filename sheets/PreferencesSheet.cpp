// SPDX-License-Identifier: MIT
#include "sheets/PreferencesSheet.h"

#include "look/NamedColor.h"
#include "look/SpokenName.h"
#include "place/DegreesText.h"
#include "text/Localized.h"
#include "ui_PreferencesSheet.h"

#include <QSignalBlocker>

namespace {

/// What stands in the two fields.
struct PlaceFields {
    explicit PlaceFields(const Ui::PreferencesSheet& sheet)
        : latitudeText(sheet.latitudeField->text().trimmed()), longitudeText(sheet.longitudeField->text().trimmed()),
          isBeingTyped(sheet.latitudeField->hasFocus() || sheet.longitudeField->hasFocus())
    {
    }

    bool isHalf() const { return latitude.has_value() != longitude.has_value(); }

    /// Empty when nothing is wrong.
    QString problem() const
    {
        if (!latitude && !latitudeText.isEmpty()) {
            return localized("The latitude is a number from −90 to 90");
        }
        if (!longitude && !longitudeText.isEmpty()) {
            return localized("The longitude is a number from −180 to 180");
        }
        return isHalf() && !isBeingTyped ? localized("Enter both, or leave both empty") : QString();
    }

    QString latitudeText;
    QString longitudeText;
    bool isBeingTyped = false;
    std::optional<double> latitude = DegreesText::degreesFromText(latitudeText, greatestLatitude);
    std::optional<double> longitude = DegreesText::degreesFromText(longitudeText, greatestLongitude);
};

} // namespace

PreferencesSheet::PreferencesSheet(QWidget* parent)
    : QDialog(parent), m_outlets(std::make_unique<Ui::PreferencesSheet>())
{
    m_outlets->setupUi(this);
}

PreferencesSheet::~PreferencesSheet() = default;

void PreferencesSheet::showPlace(const std::optional<Coordinate>& place)
{
    const auto show = [](QLineEdit& field, const std::optional<double>& degrees) {
        const QSignalBlocker notTyped(field);
        field.setText(degrees ? DegreesText::wholeText(*degrees) : QString());
    };
    show(*m_outlets->latitudeField, place ? std::optional(place->latitude) : std::nullopt);
    show(*m_outlets->longitudeField, place ? std::optional(place->longitude) : std::nullopt);
    showProblem({});
}

PreferencesSheet::TypedPlace PreferencesSheet::readPlace()
{
    const PlaceFields fields(*m_outlets);
    showProblem(fields.problem());
    if (!fields.problem().isEmpty() || fields.isHalf()) {
        return {};
    }
    return {.isComplete = true,
            .place = fields.latitude ? std::optional(Coordinate{*fields.latitude, *fields.longitude}) : std::nullopt};
}

void PreferencesSheet::followTyping()
{
    if (m_outlets->placeProblem->isVisible()) {
        showProblem(PlaceFields(*m_outlets).problem());
    }
}

/// Shown in place of the hint, and spoken with both fields.
void PreferencesSheet::showProblem(const QString& problem)
{
    const Ui::PreferencesSheet& sheet = *m_outlets;
    QPalette red = palette();
    red.setColor(QPalette::WindowText, namedColor(u"SystemRedColor", red));
    sheet.placeProblem->setPalette(red);
    sheet.placeProblem->setText(problem);
    sheet.placeProblem->setMinimumHeight(sheet.placeHint->sizeHint().height()); // so that nothing moves
    sheet.placeHint->setVisible(problem.isEmpty());
    sheet.placeProblem->setVisible(!problem.isEmpty());
    const QString& spoken = problem.isEmpty() ? sheet.placeHint->text() : problem;
    setSpokenDescription(*sheet.latitudeField, spoken);
    setSpokenDescription(*sheet.longitudeField, spoken);
}
