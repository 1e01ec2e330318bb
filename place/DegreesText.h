// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// Degrees of latitude and longitude as people type and read them.
namespace DegreesText {

/// The number that `text` is: a sign or none, decimal digits of any script, with or without a fraction after a point, a
/// comma or an Arabic decimal separator, whatever the locale; blanks and a degree sign around it do not matter. Nothing
/// for any other text and for a number beyond `limit` or -`limit`.
std::optional<double> degreesFromText(QStringView text, double limit);

/// The number as the current locale writes it, with the decimals that it takes to read it back unchanged.
QString wholeText(double degrees);

/// The number as the current locale writes it, rounded to one decimal place.
QString shortText(double degrees);

} // namespace DegreesText
