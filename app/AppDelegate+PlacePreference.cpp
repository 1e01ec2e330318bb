// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/EnteredPlace.h"
#include "look/NamedColor.h"
#include "look/SpokenName.h"
#include "place/DegreesText.h"
#include "text/Localized.h"
#include "ui_PreferencesSheet.h"

#include <QSignalBlocker>

namespace {

/// What stands in the sheet's two fields.
struct TypedPlace {
    explicit TypedPlace(const Ui::PreferencesSheet& sheet)
        : latitudeText(sheet.latitudeField->text().trimmed()), longitudeText(sheet.longitudeField->text().trimmed()),
          isBeingTyped(sheet.latitudeField->hasFocus() || sheet.longitudeField->hasFocus())
    {
    }

    bool isHalf() const { return latitude.has_value() != longitude.has_value(); }

    /// Empty when nothing is wrong. One half is no mistake yet while the other may be typed.
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
    const TypedPlace typed(*m_prefsLayout);
    showPlaceProblem(typed.problem());
    if (!typed.problem().isEmpty() || typed.isHalf()) {
        return;
    }
    const auto place = typed.latitude ? std::optional(Coordinate{*typed.latitude, *typed.longitude}) : std::nullopt;
    if (place != enteredPlace(m_host.userDefaults)) {
        setEnteredPlace(place, m_host.userDefaults);
        askForLocationAgain();
    }
}

/// What was found wrong is said until it is mended; nothing new is found wrong before the typing ends.
void AppDelegate::userTypesPlace()
{
    if (m_prefsLayout->placeProblem->isVisible()) {
        showPlaceProblem(TypedPlace(*m_prefsLayout).problem());
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
    setSpokenDescription(*sheet.latitudeField, spoken);
    setSpokenDescription(*sheet.longitudeField, spoken);
}
