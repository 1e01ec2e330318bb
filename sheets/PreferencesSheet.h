// SPDX-License-Identifier: MIT
#pragma once

#include "place/Coordinate.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class PreferencesSheet;
}

/// The preferences. Its choices are read and set through its outlets; of the place's two fields it knows itself whether
/// they make sense.
class PreferencesSheet : public QDialog {
    Q_OBJECT

public:
    explicit PreferencesSheet(QWidget* parent);
    ~PreferencesSheet() override;

    const Ui::PreferencesSheet& outlets() const { return *m_outlets; }

    /// Puts a place into the fields; without one they are empty.
    void showPlace(const std::optional<Coordinate>& place);

    struct TypedPlace {
        bool isComplete = false;         ///< both fields tell a number of degrees, or both are empty
        std::optional<Coordinate> place; ///< nullopt when they are empty, or not complete
    };

    /// What the fields tell; says below them what is wrong with it. One half alone is not wrong while the other may
    /// still be typed.
    TypedPlace readPlace();

    /// Something is being typed into the fields. What was found wrong is said until it is mended, and nothing new is
    /// found wrong.
    void followTyping();

private:
    void showProblem(const QString& problem);

    std::unique_ptr<Ui::PreferencesSheet> m_outlets;
};
