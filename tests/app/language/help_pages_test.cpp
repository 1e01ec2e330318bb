// SPDX-License-Identifier: MIT
// The help pages as they stand in the source tree: whole, in step with each other and with the program.
#include "app/language/contents.h"
#include "host/linux/InstalledBundle.h"
#include "support/AppFixture.h"

#include <QAction>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace {

const QString resources = QStringLiteral(VELUMORA_SOURCE_DIR "/resources/");

struct Element {
    QString name;
    QMap<QString, QString> attributes;
    QString text; ///< of the element and all in it, blanks simplified

    QString attribute(const char* key) const { return attributes.value(QString::fromLatin1(key)); }
};

/// The elements of a page in the order of their ends; `error` says what is not well formed.
struct Page {
    QString path;
    QString error;
    QList<Element> elements;

    QList<Element> named(const char* name) const
    {
        QList<Element> found;
        for (const Element& element : elements) {
            if (element.name == QLatin1String(name)) {
                found.append(element);
            }
        }
        return found;
    }

    QStringList values(const char* attribute) const
    {
        QStringList found;
        for (const Element& element : elements) {
            if (element.attributes.contains(QString::fromLatin1(attribute))) {
                found.append(element.attribute(attribute));
            }
        }
        return found;
    }
};

Page readPage(const QString& language)
{
    Page page{.path = resources + language + QStringLiteral(".lproj/VelumoraHelp/VelumoraHelp.htm"),
              .error = {},
              .elements = {}};
    QXmlStreamReader xml(contents(page.path));
    QList<Element> open;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            Element element{.name = xml.name().toString(), .attributes = {}, .text = {}};
            for (const QXmlStreamAttribute& attribute : xml.attributes()) {
                element.attributes.insert(attribute.qualifiedName().toString(), attribute.value().toString());
            }
            open.append(element);
        } else if (xml.isCharacters()) {
            for (Element& element : open) {
                element.text += xml.text();
            }
        } else if (xml.isEndElement()) {
            Element element = open.takeLast();
            element.text = element.text.simplified();
            page.elements.append(element);
        }
    }
    if (xml.hasError()) {
        page.error = QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString());
    }
    return page;
}

/// The languages that have a help folder.
std::vector<std::string> languagesWithHelp()
{
    std::vector<std::string> found;
    for (const QString& folder : QDir(resources).entryList({QStringLiteral("*.lproj")}, QDir::Dirs)) {
        if (QDir(resources + folder).exists(QStringLiteral("VelumoraHelp"))) {
            found.push_back(QFileInfo(folder).completeBaseName().toStdString());
        }
    }
    return found;
}

/// The texts of the elements of that name in a layout or a catalogue.
QStringList texts(const QString& path, const char* element)
{
    QStringList found;
    QXmlStreamReader xml(contents(path));
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String(element)) {
            found.append(xml.readElementText(QXmlStreamReader::IncludeChildElements));
        }
    }
    return found;
}

/// A text as the help quotes it: without the mark of its menu key, with a typographer's apostrophe.
QString quoted(QString text)
{
    return text.remove(u'&').replace(u'\'', u'’').simplified();
}

QSet<QString> textsOfProgram(const QString& language)
{
    const QString catalogue = QStringLiteral("%1%2.lproj/velumora_%2.ts");
    const bool english = language == QLatin1String("en"); // the texts in the code
    const QString path = catalogue.arg(resources, english ? QStringLiteral("de") : language);
    QSet<QString> found;
    for (const QString& text : texts(path, english ? "source" : "translation")) {
        found.insert(quoted(text));
    }
    return found;
}

/// WCAG's relative luminance of a colour.
double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

class HelpPage : public ::testing::TestWithParam<std::string> {
protected:
    QString language = QString::fromStdString(GetParam());
    Page page = readPage(language);
};

TEST_P(HelpPage, IsWellFormedAndSaysItsLanguageAndTitle)
{
    EXPECT_EQ(page.error, QString());
    EXPECT_TRUE(contents(page.path).startsWith("<!DOCTYPE html>\n"));
    ASSERT_EQ(page.named("html").size(), 1);
    EXPECT_EQ(page.named("html").first().attribute("lang"), language);
    ASSERT_EQ(page.named("title").size(), 1);
    EXPECT_FALSE(page.named("title").first().text.isEmpty());
    EXPECT_EQ(page.named("h1").size(), 1);
    EXPECT_EQ(page.named("main").size(), 1);
}

TEST_P(HelpPage, LeadsOnlyToWhatIsThere)
{
    const QStringList ids = page.values("id");
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), ids.size()) << "an id stands twice";
    for (const char* attribute : {"href", "aria-labelledby"}) {
        for (const QString& value : page.values(attribute)) {
            const bool isLink = qstrcmp(attribute, "href") == 0;
            EXPECT_TRUE(!isLink || value.startsWith(u'#')) << value.toStdString();
            EXPECT_TRUE(ids.contains(isLink ? value.mid(1) : value)) << value.toStdString();
        }
    }
    const QByteArray source = contents(page.path).replace("http://www.w3.org/1999/xhtml", "");
    for (const char* outside : {"http:", "https:", "url(", "<script", "@import"}) {
        EXPECT_FALSE(source.contains(outside)) << outside;
    }
}

TEST_P(HelpPage, ShowsPicturesOfTheirSizeWithAText)
{
    constexpr qint64 largest = 150 * 1000;
    EXPECT_FALSE(page.named("img").isEmpty());
    for (const Element& picture : page.named("img")) {
        const QString path = QFileInfo(page.path).dir().filePath(picture.attribute("src"));
        EXPECT_FALSE(picture.attribute("alt").isEmpty()) << path.toStdString();
        EXPECT_EQ(QImageReader(path).size(),
                  QSize(picture.attribute("width").toInt(), picture.attribute("height").toInt()))
            << path.toStdString();
        EXPECT_LT(QFileInfo(path).size(), largest) << path.toStdString();
    }
}

TEST_P(HelpPage, HasTheSectionsKeysAndStyleOfTheEnglishOne)
{
    const Page english = readPage(QStringLiteral("en"));
    EXPECT_EQ(page.values("id"), english.values("id"));
    EXPECT_EQ(page.values("data-keys"), english.values("data-keys"));
    EXPECT_EQ(page.named("style").first().text, english.named("style").first().text);
    for (const char* element : {"section", "h3", "dt", "tr", "li", "p", "b", "kbd"}) {
        EXPECT_EQ(page.named(element).size(), english.named(element).size()) << element;
    }
}

TEST_P(HelpPage, ListsEverySectionInItsContents)
{
    QStringList sections;
    for (const Element& section : page.named("section")) {
        sections.append(QStringLiteral("#") + section.attribute("aria-labelledby"));
    }
    QStringList listed = page.values("href");
    listed.removeAll(QStringLiteral("#content"));
    listed.removeAll(QStringLiteral("#top"));
    EXPECT_EQ(listed, sections);
}

TEST_P(HelpPage, NamesEveryKeyOfTheMenus)
{
    const QStringList told = page.values("data-keys");
    QXmlStreamReader xml(contents(resources + QStringLiteral("MainWindow.ui")));
    int keys = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        const bool isShortcut = xml.isStartElement() && xml.attributes().value(QLatin1String("name")) == u"shortcut";
        if (isShortcut && xml.readNextStartElement()) {
            const QString key = xml.readElementText();
            EXPECT_TRUE(told.contains(key)) << key.toStdString();
            ++keys;
        }
    }
    EXPECT_GT(keys, 20);
}

TEST_P(HelpPage, CallsTheControlsByTheirNames)
{
    const QSet<QString> known = textsOfProgram(language);
    for (const Element& control : page.named("b")) {
        EXPECT_TRUE(known.contains(control.text)) << control.text.toStdString();
    }
}

TEST_P(HelpPage, CanBeReadInBothAppearances)
{
    constexpr double readable = 4.5;
    static const QRegularExpression palette(QStringLiteral(":root \\{([^}]*)\\}"));
    static const QRegularExpression entry(QStringLiteral("--(\\w+): (#[0-9a-f]{6})"));
    int palettes = 0;
    for (auto found = palette.globalMatch(page.named("style").first().text); found.hasNext(); ++palettes) {
        QMap<QString, QColor> colors;
        for (auto each = entry.globalMatch(found.next().captured(1)); each.hasNext();) {
            const QRegularExpressionMatch match = each.next();
            colors.insert(match.captured(1), QColor(match.captured(2)));
        }
        for (const char* text : {"text", "quiet", "link"}) {
            for (const char* ground : {"page", "card"}) {
                EXPECT_GE(contrast(colors.value(QString::fromLatin1(text)), colors.value(QString::fromLatin1(ground))),
                          readable)
                    << text << " on " << ground;
            }
        }
    }
    EXPECT_EQ(palettes, 2);
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpPage, ::testing::ValuesIn(languagesWithHelp()),
                         [](const auto& language) { return language.param; });

class HelpOfTheProgram : public AppFixture {
protected:
    HelpOfTheProgram() { start(); }
};

TEST_F(HelpOfTheProgram, IsThePageOfTheLocalesLanguage)
{
    const InstalledBundle bundle;
    for (const char* language : {"en", "de"}) {
        const LocaleGuard locale(std::string(language) + "_CH", {"fr-FR"});
        const auto folder = bundle.localizationFolder(QString::fromLatin1(language));
        ASSERT_TRUE(folder) << language;
        host.bundle.resources = folder->parent_path();
        host.workspace.opened.clear();
        ui->helpAction->trigger();
        ASSERT_EQ(host.workspace.opened.size(), 1);
        EXPECT_EQ(host.workspace.opened.first(), QUrl::fromLocalFile(readPage(QString::fromLatin1(language)).path));
        EXPECT_TRUE(QFile::exists(host.workspace.opened.first().toLocalFile()));
    }
}

} // namespace
