// SPDX-License-Identifier: MIT
#include "print/PdfUpdate.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr qsizetype entrySize = 20; ///< of the cross-reference table, in bytes
constexpr qsizetype offsetDigits = 10;

/// The part of `bytes` from the last `mark` on; empty when there is none.
QByteArray fromLast(const QByteArray& bytes, const char* mark)
{
    const qsizetype begin = bytes.lastIndexOf(mark);
    return begin < 0 ? QByteArray() : bytes.sliced(begin);
}

qsizetype tableOf(const QByteArray& file)
{
    const QByteArray end = fromLast(file, "startxref").simplified();
    return end.isEmpty() ? -1 : end.split(' ').value(1).toLongLong();
}

} // namespace

PdfUpdate::PdfUpdate(const QByteArray& file)
    : m_file(file), m_table(tableOf(file)), m_trailer(fromLast(file, "trailer")),
      m_objectCount(numberOf(m_trailer, "Size").value_or(0))
{
    m_trailer.truncate(std::max<qsizetype>(m_trailer.indexOf("startxref"), 0));
}

QByteArray PdfUpdate::reference(int object)
{
    return QByteArray::number(object) + " 0 R";
}

std::optional<int> PdfUpdate::numberOf(const QByteArray& dictionary, const QByteArray& key)
{
    const QRegularExpression pattern(QStringLiteral("/%1\\s*\\[?\\s*(\\d+)").arg(QLatin1String(key)));
    const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(dictionary));
    return match.hasMatch() ? std::optional(match.captured(1).toInt()) : std::nullopt;
}

QByteArray PdfUpdate::dictionary(int object) const
{
    if (object <= 0 || m_table < 0) {
        return {};
    }
    const qsizetype entries = m_file.indexOf('\n', m_table + static_cast<qsizetype>(sizeof "xref")) + 1;
    const qsizetype place = m_file.mid(entries + object * entrySize, offsetDigits).toLongLong();
    const qsizetype begin = m_file.indexOf("<<", place);
    const qsizetype end = m_file.indexOf("endobj", place);
    return begin < 0 || end < begin ? QByteArray() : m_file.sliced(begin, end - begin).trimmed();
}

void PdfUpdate::write(int object, const QByteArray& body)
{
    m_written.append({object, m_file.size()});
    m_file += QByteArray::number(object) + " 0 obj\n" + body + "\nendobj\n";
}

void PdfUpdate::writeStream(int object, const QByteArray& content)
{
    constexpr qsizetype sizePrefix = 4; // qCompress puts the size before the data
    const QByteArray packed = qCompress(content).sliced(sizePrefix);
    write(object, "<< /Filter /FlateDecode /Length " + QByteArray::number(packed.size()) + " >>\nstream\n" + packed +
                      "\nendstream");
}

QByteArray PdfUpdate::finished() const
{
    QByteArray trailer = m_trailer;
    const QByteArray oldSize = "/Size " + QByteArray::number(numberOf(m_trailer, "Size").value_or(0));
    trailer.replace(oldSize, "/Size " + QByteArray::number(m_objectCount) + "\n/Prev " + QByteArray::number(m_table));
    QByteArray table = "xref\n";
    for (const Written& each : m_written) {
        table += QByteArray::number(each.object) + " 1\n" +
                 QByteArray::number(each.offset).rightJustified(offsetDigits, '0') + " 00000 n \n";
    }
    return m_file + table + trailer + "startxref\n" + QByteArray::number(m_file.size()) + "\n%%EOF\n";
}
