// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/EnteredPlace.h"
#include "app/Localized.h"
#include "dates/DegreesText.h"
#include "notes/NamedColor.h"
#include "ui_PreferencesSheet.h"

#include <QSignalBlocker>

void AppDelegate::showEnteredPlace()
{
    const std::optional<Coordinate> place = enteredPlace(m_host.userDefaults);
    const auto show = [](QLineEdit& field, const std::optional<double>& degrees) {
        const QSignalBlocker notTyped(field);
        field.setText(degrees ? DegreesText::wholeText(*degrees) : QString());
    };
    show(*m_prefsLayout->latitudeField, place ? std::optional(place->latitude) : std::nullopt);
    show(*m_prefsLayout->longitudeField, place ? std::optional(place->longitude) : std::nullopt);
    showPlaceProblem({});
}

void AppDelegate::userSetPlace()
{
    const QString latitudeText = m_prefsLayout->latitudeField->text().trimmed();
    const QString longitudeText = m_prefsLayout->longitudeField->text().trimmed();
    const auto latitude = DegreesText::degreesFromText(latitudeText, greatestLatitude);
    const auto longitude = DegreesText::degreesFromText(longitudeText, greatestLongitude);
    if (!latitude && !latitudeText.isEmpty()) {
        showPlaceProblem(localized("The latitude is a number from −90 to 90"));
    } else if (!longitude && !longitudeText.isEmpty()) {
        showPlaceProblem(localized("The longitude is a number from −180 to 180"));
    } else if (latitude.has_value() != longitude.has_value()) {
        showPlaceProblem(localized("Enter both, or leave both empty"));
    } else {
        showPlaceProblem({});
        setEnteredPlace(latitude ? std::optional(Coordinate{*latitude, *longitude}) : std::nullopt,
                        m_host.userDefaults);
        askForLocationAgain();
    }
}

/// Shown in place of the hint, and spoken with both fields.
void AppDelegate::showPlaceProblem(const QString& problem)
{
    const Ui::PreferencesSheet& sheet = *m_prefsLayout;
    QPalette red = m_prefsSheet->palette();
    red.setColor(QPalette::WindowText, namedColor(u"SystemRedColor", red));
    sheet.placeProblem->setPalette(red);
    sheet.placeProblem->setText(problem);
    sheet.placeProblem->setMinimumHeight(sheet.placeHint->sizeHint().height()); // so that nothing moves
    sheet.placeHint->setVisible(problem.isEmpty());
    sheet.placeProblem->setVisible(!problem.isEmpty());
    const QString& spoken = problem.isEmpty() ? sheet.placeHint->text() : problem;
    sheet.latitudeField->setAccessibleDescription(spoken);
    sheet.longitudeField->setAccessibleDescription(spoken);
}
