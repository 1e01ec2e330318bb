// SPDX-License-Identifier: MIT
// The catalogues as they stand in the source tree against the texts that the source tree uses.
#include "app/language/contents.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

const QString sourceTree = QStringLiteral(VELUMORA_SOURCE_DIR "/");
struct Entry {
    QString translation;
    bool finished = false;
};

using Catalogue = QMap<QString, Entry>; ///< by the English text

QStringList filesIn(const QString& folder, const QStringList& patterns)
{
    QStringList files;
    for (QDirIterator each(folder, patterns, QDir::Files, QDirIterator::Subdirectories); each.hasNext();) {
        files.append(each.next());
    }
    files.sort();
    return files;
}

/// The text of the element that begins here. A control character stands as <byte value="xd"/> in it.
QString catalogueText(QXmlStreamReader& xml)
{
    QString text;
    while (xml.readNext() != QXmlStreamReader::EndElement) {
        if (xml.isStartElement()) {
            text += QChar(xml.attributes().value(QLatin1String("value")).mid(1).toUShort(nullptr, 16));
            xml.skipCurrentElement();
        } else {
            text += xml.text();
        }
    }
    return text;
}

Catalogue readCatalogue(const QString& path)
{
    Catalogue catalogue;
    QXmlStreamReader xml(contents(path));
    QString source;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement()) {
            continue;
        }
        if (xml.name() == QLatin1String("name")) {
            EXPECT_EQ(xml.readElementText(), QLatin1String("Velumora"));
        } else if (xml.name() == QLatin1String("source")) {
            source = catalogueText(xml);
            EXPECT_FALSE(catalogue.contains(source)) << "twice: " << source.toStdString();
        } else if (xml.name() == QLatin1String("translation")) {
            const bool finished = !xml.attributes().hasAttribute(QLatin1String("type"));
            catalogue.insert(source, {.translation = catalogueText(xml), .finished = finished});
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return catalogue;
}

/// What a string literal of the code stands for.
QString unescaped(const QString& literal)
{
    static const QMap<QChar, QChar> escapes{{u'n', u'\n'}, {u'r', u'\r'}, {u't', u'\t'}, {u'"', u'"'}, {u'\\', u'\\'}};
    QString text;
    for (qsizetype i = 0; i < literal.size(); ++i) {
        if (literal.at(i) != u'\\') {
            text += literal.at(i);
            continue;
        }
        EXPECT_TRUE(escapes.contains(literal.at(i + 1))) << "unknown escape in " << literal.toStdString();
        text += escapes.value(literal.at(++i));
    }
    return text;
}

void addTextsOfCode(const QString& path, QSet<QString>& texts)
{
    static const QRegularExpression call(QStringLiteral(R"re(\blocalized\(\s*((?:"(?:[^"\\]|\\.)*"\s*)+))re"));
    static const QRegularExpression literal(QStringLiteral(R"re("((?:[^"\\]|\\.)*)")re"));
    const QString code = QString::fromUtf8(contents(path));
    for (auto calls = call.globalMatch(code); calls.hasNext();) {
        QString text;
        for (auto pieces = literal.globalMatch(calls.next().captured(1)); pieces.hasNext();) {
            text += unescaped(pieces.next().captured(1));
        }
        texts.insert(text);
    }
}

void addTextsOfLayout(const QString& path, QSet<QString>& texts)
{
    QXmlStreamReader xml(contents(path));
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("string")) {
            const bool translatable = xml.attributes().value(QLatin1String("notr")) != QLatin1String("true");
            const QString text = xml.readElementText();
            if (translatable && !text.isEmpty()) {
                texts.insert(text);
            }
        }
    }
    EXPECT_FALSE(xml.hasError()) << path.toStdString();
}

/// The sources of the rooms, which are the folders whose build script says so.
QStringList codeFiles()
{
    QStringList files;
    for (const QString& folder : QDir(sourceTree).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile script(sourceTree + folder + QStringLiteral("/CMakeLists.txt"));
        if (script.open(QIODevice::ReadOnly) && script.readAll().contains("velumora_room(")) {
            files += filesIn(sourceTree + folder, {QStringLiteral("*.cpp"), QStringLiteral("*.h")});
        }
    }
    return files;
}

QSet<QString> textsInUse()
{
    QSet<QString> texts;
    for (const QString& file : codeFiles()) {
        addTextsOfCode(file, texts);
    }
    for (const QString& file : filesIn(sourceTree + QStringLiteral("resources"), {QStringLiteral("*.ui")})) {
        addTextsOfLayout(file, texts);
    }
    return texts;
}

QStringList placeholders(const QString& text)
{
    static const QRegularExpression placeholder(QStringLiteral("%(?:[1-9]\\$)?(@|ld|d)"));
    QStringList found;
    for (auto matches = placeholder.globalMatch(text); matches.hasNext();) {
        found.append(matches.next().captured(1));
    }
    found.sort();
    return found;
}

/// The languages whose folders hold a catalogue.
std::vector<std::string> languagesWithCatalogue()
{
    std::vector<std::string> found;
    for (const QString& file : filesIn(sourceTree + QStringLiteral("resources"), {QStringLiteral("*.ts")})) {
        found.push_back(QFileInfo(file).completeBaseName().section(u'_', 1).toStdString());
    }
    return found;
}

/// The catalogue of a language, at the place where every language has it.
Catalogue catalogueOf(const std::string& language)
{
    const QString place = QStringLiteral("%1resources/%2.lproj/velumora_%2.ts");
    return readCatalogue(place.arg(sourceTree, QString::fromStdString(language)));
}

class CatalogueTest : public ::testing::TestWithParam<std::string> {};

TEST(TextsInUse, AreFoundInTheCodeAndInTheLayouts)
{
    const QSet<QString> texts = textsInUse();
    EXPECT_TRUE(texts.contains(QStringLiteral("of note for\r %@")));
    EXPECT_TRUE(texts.contains(QStringLiteral("Show All")));
    EXPECT_TRUE(texts.contains(QStringLiteral("&File")));
    EXPECT_FALSE(texts.contains(QStringLiteral("Ctrl+S")));
}

TEST(TextsInUse, AreLiteralsSoThatEveryOneIsKnown)
{
    static const QRegularExpression notLiteral(QStringLiteral(R"re(\blocalized\(\s*[^"\s])re"));
    for (const QString& file : codeFiles()) {
        if (!file.contains(QLatin1String("text/Localized."))) {
            EXPECT_FALSE(QString::fromUtf8(contents(file)).contains(notLiteral)) << file.toStdString();
        }
    }
}

TEST_P(CatalogueTest, HoldsAFinishedTranslationOfEveryTextInUse)
{
    const Catalogue catalogue = catalogueOf(GetParam());
    for (const QString& text : textsInUse()) {
        const Entry entry = catalogue.value(text);
        EXPECT_TRUE(entry.finished && !entry.translation.isEmpty()) << "missing: " << text.toStdString();
    }
}

TEST_P(CatalogueTest, HoldsNothingElse)
{
    const QSet<QString> texts = textsInUse();
    for (const QString& text : catalogueOf(GetParam()).keys()) {
        EXPECT_TRUE(texts.contains(text)) << "superfluous: " << text.toStdString();
    }
}

TEST_P(CatalogueTest, KeepsPlaceholdersAndMenuKeys)
{
    const Catalogue catalogue = catalogueOf(GetParam());
    for (auto entry = catalogue.begin(); entry != catalogue.end(); ++entry) {
        const QString& translation = entry.value().translation;
        EXPECT_EQ(placeholders(translation), placeholders(entry.key())) << entry.key().toStdString();
        EXPECT_EQ(translation.count(u'&'), entry.key().count(u'&')) << entry.key().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Catalogues, CatalogueTest, ::testing::ValuesIn(languagesWithCatalogue()),
                         [](const auto& language) { return language.param; });

} // namespace
