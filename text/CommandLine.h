// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Handles a command line that only asks about the program: --help and --version print to standard output, anything
/// else is refused with one line on standard error. Returns the exit status, or nullopt when nothing was asked and the
/// program should run.
///
/// The options named in `passedOn` each take a value and are left for Qt. The program's name and version are those of
/// QCoreApplication, which must exist.
std::optional<int> answerToCommandLine(const QString& description, const QStringList& passedOn = {});
