// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Answers a program's command line, which tells about the program and sets nothing: --help and --version are answered
/// on the standard output, and anything else is refused in one line on the standard error. The status to end with;
/// nullopt when there is nothing to answer and the program is to run.
///
/// Options named in `passedOn`, each with a value, belong to the toolkit and are left to it. Name and version are those
/// of QCoreApplication. Needs an application object.
std::optional<int> answerToCommandLine(const QString& description, const QStringList& passedOn = {});
