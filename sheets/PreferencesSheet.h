// SPDX-License-Identifier: MIT
#pragma once

#include "place/Coordinate.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class PreferencesSheet;
}

/// The preferences. Choices are read and set through the outlets; the sheet checks by itself what is typed as a place.
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

    /// What is typed into the fields. Says below them what is wrong, if anything is; one half alone is not wrong while
    /// the other may still be typed.
    TypedPlace readPlace();

    /// To be called while the fields are typed into: a mistake that was reported disappears once it is corrected, and
    /// no new one is reported.
    void followTyping();

private:
    void showProblem(const QString& problem);

    std::unique_ptr<Ui::PreferencesSheet> m_outlets;
};
