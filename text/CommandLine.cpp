// SPDX-License-Identifier: MIT
#include "text/CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace {

void print(std::FILE* stream, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
}

int refuse(const QString& reason)
{
    std::fprintf(stderr, "%s: %s\n", qPrintable(QCoreApplication::applicationName()), qPrintable(reason));
    return EXIT_FAILURE;
}

} // namespace

std::optional<int> answerToCommandLine(const QString& description, const QStringList& passedOn)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions); // Qt's own options have one dash
    const QCommandLineOption help(
        {QStringLiteral("h"), QStringLiteral("help")},
        QCoreApplication::translate("QCommandLineParser", "Displays help on commandline options."));
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    for (const QString& name : passedOn) {
        QCommandLineOption option(name, QString(), QStringLiteral("value"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
    if (!parser.parse(QCoreApplication::arguments())) {
        return refuse(parser.errorText());
    }
    if (parser.isSet(help)) {
        print(stdout, parser.helpText());
        return EXIT_SUCCESS;
    }
    if (parser.isSet(version)) {
        print(stdout, QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() + u'\n');
        return EXIT_SUCCESS;
    }
    if (const QStringList others = parser.positionalArguments(); !others.isEmpty()) {
        return refuse(
            QCoreApplication::translate("QCommandLineParser", "Unexpected argument '%1'.").arg(others.first()));
    }
    return std::nullopt;
}
