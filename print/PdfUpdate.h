// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

/// A PDF file that is changed by what is written behind it, as the format provides for (ISO 32000-1, 7.5.6). Made for
/// the files of QPdfWriter: one plain table of objects, dictionaries that are not packed.
class PdfUpdate {
public:
    explicit PdfUpdate(const QByteArray& file);

    static QByteArray reference(int object);

    /// The number that follows `key` in `dictionary`: a value, an object's number, or the first of an array.
    static std::optional<int> numberOf(const QByteArray& dictionary, const QByteArray& key);

    /// What the file says at its end: where its parts begin.
    const QByteArray& trailer() const { return m_trailer; }

    /// The dictionary that is the file's object of that number; empty when there is none.
    QByteArray dictionary(int object) const;

    int newObject() { return m_objectCount++; }

    /// Writes an object: a new one, or one of the file anew.
    void write(int object, const QByteArray& body);
    void writeStream(int object, const QByteArray& content);

    /// The whole file.
    QByteArray finished() const;

private:
    struct Written {
        int object;
        qsizetype offset;
    };

    QByteArray m_file;
    qsizetype m_table; ///< where the file's own table of objects begins
    QByteArray m_trailer;
    int m_objectCount;
    QList<Written> m_written;
};
