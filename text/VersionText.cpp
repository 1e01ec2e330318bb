// SPDX-License-Identifier: MIT
#include "text/VersionText.h"

#include <QStringDecoder>

#include <utility>

std::optional<QString> VersionText::fromFile(const QByteArray& file)
{
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    QString text = decoder.decode(file);
    return decoder.hasError() ? std::nullopt : std::optional(std::move(text));
}

bool VersionText::isNewer(const QString& told, const QString& own)
{
    return told > own;
}
