// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

/// Changes a PDF file by appending to it, as the format allows (ISO 32000-1, 7.5.6). Only for files of QPdfWriter: a
/// single plain cross-reference table and uncompressed dictionaries.
class PdfUpdate {
public:
    explicit PdfUpdate(const QByteArray& file);

    static QByteArray reference(int object);

    /// The number after `key` in `dictionary`: a value, an object's number, or the first element of an array.
    static std::optional<int> numberOf(const QByteArray& dictionary, const QByteArray& key);

    /// The trailer at the file's end, which says where its parts begin.
    const QByteArray& trailer() const { return m_trailer; }

    /// The dictionary of the file's object with that number; empty when there is none.
    QByteArray dictionary(int object) const;

    int newObject() { return m_objectCount++; }

    /// Writes a new object, or replaces one of the file's.
    void write(int object, const QByteArray& body);
    void writeStream(int object, const QByteArray& content);

    /// The whole file, with the changes.
    QByteArray finished() const;

private:
    struct Written {
        int object;
        qsizetype offset;
    };

    QByteArray m_file;
    qsizetype m_table; ///< the position of the file's own cross-reference table
    QByteArray m_trailer;
    int m_objectCount;
    QList<Written> m_written;
};
