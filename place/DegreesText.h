// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// Degrees of latitude and longitude as people type and read them.
namespace DegreesText {

/// The number in `text`, whatever the locale: an optional sign and decimal digits of any script, with an optional
/// fraction after a point, a comma or an Arabic decimal separator; surrounding blanks and a degree sign are ignored.
/// nullopt for any other text and for a number beyond `limit` or -`limit`.
std::optional<double> degreesFromText(QStringView text, double limit);

/// The number as the current locale writes it, with as many decimals as reading it back unchanged takes.
QString wholeText(double degrees);

/// The number as the current locale writes it, rounded to one decimal place.
QString shortText(double degrees);

} // namespace DegreesText
