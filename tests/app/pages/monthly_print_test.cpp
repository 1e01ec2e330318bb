// SPDX-License-Identifier: MIT
// The printed month, read back by other programs (poppler's tools).
#include "calendar/MonthlyGrid.h"
#include "support/AppFixture.h"
#include "support/FileSizeLimit.h"
#include "support/Pixels.h"
#include "support/Screenshot.h"

#include <QDir>
#include <QImage>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

const std::string longNote = "Hoffmann, Effi, find: " + [] {
    std::string words;
    for (int word = 1; word <= 400; ++word) {
        words += "word" + std::to_string(word) + " ";
    }
    return words;
}();

class MonthlyPrintTest : public AppFixture {
protected:
    MonthlyPrintTest() { host.temporaryFolder = home.path().toStdString(); }

    QString file() { return home.filePath(QStringLiteral("MyPrintedView.pdf")); }
    QUrl url() { return QUrl::fromLocalFile(file()); }

    void print()
    {
        start();
        ui->printAction->trigger();
    }

    /// What a program says of the printed file.
    QString told(const QString& program, const QStringList& options, const QStringList& behind = {})
    {
        QProcess process;
        process.start(program, options + QStringList{file()} + behind);
        EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
        EXPECT_EQ(process.exitCode(), 0);
        EXPECT_EQ(process.readAllStandardError().toStdString(), "");
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    QString text() { return told(QStringLiteral("pdftotext"), {QStringLiteral("-layout")}, {QStringLiteral("-")}); }
    QString information() { return told(QStringLiteral("pdfinfo"), {}); }

    QImage picture(int dotsPerInch)
    {
        const QString name = home.filePath(QStringLiteral("picture"));
        told(
            QStringLiteral("pdftoppm"),
            {QStringLiteral("-singlefile"), QStringLiteral("-png"), QStringLiteral("-r"), QString::number(dotsPerInch)},
            {name});
        return QImage(name + QStringLiteral(".png"));
    }

    /// Where the reader says that a word stands, in points from the upper left corner.
    QRectF placeOfWord(QString word)
    {
        if (word.isRightToLeft()) {
            std::ranges::reverse(word); // in this mode it gives letters as they are seen from left to right
        }
        const QRegularExpression pattern(
            QStringLiteral("xMin=\"(.*?)\" yMin=\"(.*?)\" xMax=\"(.*?)\" yMax=\"(.*?)\">[\u202A-\u202E]*") + word);
        const QString words = told(QStringLiteral("pdftotext"), {QStringLiteral("-bbox")}, {QStringLiteral("-")});
        const QRegularExpressionMatch found = pattern.match(words);
        EXPECT_TRUE(found.hasMatch()) << word.toStdString() << " is not in\n" << words.toStdString();
        return {QPointF(found.captured(1).toDouble(), found.captured(2).toDouble()),
                QPointF(found.captured(3).toDouble(), found.captured(4).toDouble())};
    }

    QStringList filesLeft() { return QDir(home.path()).entryList(QDir::Files | QDir::Hidden); }
};

TEST_F(MonthlyPrintTest, OpensOnePageThatHoldsTheMonth)
{
    putNotes({note(2024, 3, 1, "Rent"), note(2024, 3, 12, "Dentist\nat <b>nine</b> & half"),
              note(2024, 3, 31, "Clocks forward")});
    print();
    EXPECT_EQ(ui->myTabView->currentIndex(), 2);
    EXPECT_EQ(host.workspace.opened, QList<QUrl>{url()});
    const QString page = text();
    for (const char* each :
         {"March 2024", "Sun ", "Wed ", "Sat", "Rent", "Dentist", "at <b>nine</b>", "half", "Clocks forward"}) {
        EXPECT_TRUE(page.contains(QLatin1String(each))) << each << " is not in\n" << page.toStdString();
    }
    for (int day = 1; day <= 31; ++day) {
        EXPECT_TRUE(page.contains(QRegularExpression(QStringLiteral("\\b%1\\b").arg(day)))) << day;
    }
    EXPECT_FALSE(page.contains(QStringLiteral("Print")));
    EXPECT_FALSE(page.contains(QChar(0x203A))) << "an arrow";
}

TEST_F(MonthlyPrintTest, HoldsTheMonthThatThePageShows)
{
    putNotes({note(2024, 4, 10, "Shown")});
    start();
    ui->monthlyViewPageAction->trigger();
    ui->monthlyViewForwardBtn->click();
    ui->monthlyViewPrintBtn->click();
    EXPECT_TRUE(text().contains(QStringLiteral("April 2024")));
    EXPECT_TRUE(text().contains(QStringLiteral("Shown")));
}

TEST_F(MonthlyPrintTest, HasTextsAndLinesAndNoPictures)
{
    putNotes({note(2024, 3, 12, "Größe, naïve, Łódź, Привет")});
    print();
    EXPECT_TRUE(text().contains(QStringLiteral("Größe, naïve,")));
    EXPECT_TRUE(text().contains(QStringLiteral("Привет")));
    const QStringList fonts = told(QStringLiteral("pdffonts"), {}).split(u'\n', Qt::SkipEmptyParts).mid(2);
    EXPECT_FALSE(fonts.isEmpty());
    for (const QString& font : fonts) {
        EXPECT_TRUE(font.contains(QRegularExpression(QStringLiteral(" yes (no |yes) *yes ")))) // embedded and Unicode
            << font.toStdString();
    }
    const QString pictures = told(QStringLiteral("pdfimages"), {QStringLiteral("-list")});
    EXPECT_EQ(pictures.split(u'\n', Qt::SkipEmptyParts).size(), 2) << pictures.toStdString(); // the two header lines
}

TEST_F(MonthlyPrintTest, LiesOnThePaperOfTheLocale)
{
    const struct {
        const char* locale;
        QString size;
    } rows[] = {{"en_US", QStringLiteral("792 x 612 pts (letter)")}, {"de_DE", QStringLiteral("(A4)")}};
    for (const auto& row : rows) {
        const LocaleGuard locale(row.locale, {"en-US"});
        print();
        const QString said = information();
        EXPECT_TRUE(said.contains(row.size)) << said.toStdString();
        EXPECT_TRUE(said.contains(QRegularExpression(QStringLiteral("Pages: +1\n"))));
        EXPECT_TRUE(said.contains(QRegularExpression(QStringLiteral("Title: +March 2024\n"))));
        EXPECT_TRUE(said.contains(QRegularExpression(QStringLiteral("Creator: +Velumora\n"))));
        const QImage sheet = picture(20);
        EXPECT_GT(sheet.width(), sheet.height());
    }
}

TEST_F(MonthlyPrintTest, TellsItsTitleAndItsAuthorAsWellFormedMetadata)
{
    print();
    QXmlStreamReader xml(told(QStringLiteral("pdfinfo"), {QStringLiteral("-meta")}).trimmed());
    QStringList texts;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::Characters && !xml.isWhitespace()) {
            texts.append(xml.text().toString());
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_EQ(texts, (QStringList{QStringLiteral("March 2024"), QStringLiteral("Velumora")}));
}

TEST_F(MonthlyPrintTest, ANoteThatItsCellDoesNotHoldEndsInASign)
{
    putNotes({note(2024, 3, 12, longNote), note(2024, 3, 13, "short")});
    print();
    const QString page = text();
    EXPECT_TRUE(page.contains(QStringLiteral("Hoffmann, Effi, find:"))) << "joined letters are not found by a search";
    EXPECT_TRUE(page.contains(QStringLiteral("word14")));
    EXPECT_FALSE(page.contains(QStringLiteral("word400")));
    EXPECT_EQ(page.count(u'…'), 1);
}

TEST_F(MonthlyPrintTest, AWordLongerThanItsCellIsBrokenAndLineBreaksOfAnyKindAreKept)
{
    putNotes({note(2024, 3, 12, std::string(60, 'z')), note(2024, 3, 14, "one\r\ntwo\rthree")});
    print();
    EXPECT_EQ(text().count(u'z'), 60);
    const QRegularExpression lines(QStringLiteral("one\\s*\n.*two\\s*\n.*three"));
    EXPECT_TRUE(text().contains(lines)) << text().toStdString();
}

TEST_F(MonthlyPrintTest, ANoteThatEndsInLineBreaksIsWhole)
{
    putNotes({note(2024, 3, 12, "Tea" + std::string(40, '\n')), note(2024, 3, 13, "Milk\r\n \r\n")});
    print();
    EXPECT_TRUE(text().contains(QStringLiteral("Tea")));
    EXPECT_TRUE(text().contains(QStringLiteral("Milk")));
    EXPECT_FALSE(text().contains(u'…'));
}

TEST_F(MonthlyPrintTest, EachParagraphStandsWhereItsOwnDirectionBegins)
{
    putNotes({note(2024, 3, 12, "Tea\nתה\u2028שלום world")});
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        start();
        window->setLayoutDirection(direction);
        ui->printAction->trigger();
        const double column = direction == Qt::LeftToRight ? 2 : 4;
        const double left = 36 + column * 720 / 7;
        EXPECT_NEAR(placeOfWord(QStringLiteral("Tea")).left(), left + 5, 3);
        EXPECT_NEAR(placeOfWord(QStringLiteral("תה")).right(), left + 720.0 / 7 - 5, 3);
        EXPECT_NEAR(placeOfWord(QStringLiteral("שלום")).right(), left + 720.0 / 7 - 5, 3);
        EXPECT_LT(placeOfWord(QStringLiteral("world")).right(), placeOfWord(QStringLiteral("שלום")).left());
    }
}

TEST_F(MonthlyPrintTest, TheTextIsFoundWhereItIsSeen)
{
    putNotes({note(2024, 3, 20, "HHHHHHHHHH")});
    print();
    constexpr int resolution = 144;
    const QRectF said = placeOfWord(QStringLiteral("HHHHHHHHHH"));
    const QImage sheet = picture(resolution);
    const QRect around = QRectF(said.topLeft() * resolution / 72, said.size() * resolution / 72).toAlignedRect();
    const QRect seen = placeOf(sheet.copy(around.adjusted(-10, -4, 10, 4)), isInk).translated(around.topLeft());
    EXPECT_NEAR(seen.width(), around.width(), 6);
    EXPECT_NEAR(seen.center().x() - 10, around.center().x(), 4);
    EXPECT_NEAR(seen.center().y() - 4, around.center().y(), 6);
}

TEST_F(MonthlyPrintTest, StandsMirroredInALanguageFromTheRight)
{
    start();
    window->setLayoutDirection(Qt::RightToLeft);
    ui->printAction->trigger();
    EXPECT_TRUE(text().contains(QRegularExpression(QStringLiteral("Sat +Fri +Thu +Wed +Tue +Mon +Sun"))))
        << text().toStdString();
    EXPECT_TRUE(text().contains(QRegularExpression(QStringLiteral("\\b9 +8 +7 +6 +5 +4 +3\\b"))));
}

TEST_F(MonthlyPrintTest, IsLightAndTheWindowStaysDark)
{
    host.globalDefaults.interfaceStyle = QStringLiteral("Dark");
    start();
    app->appearanceHasChanged();
    ui->monthlyViewPageAction->trigger();
    const QColor darkWindow = window->palette().color(QPalette::Window);
    ASSERT_LT(darkWindow.lightness(), 64);
    ui->monthlyViewPrintBtn->click();
    EXPECT_EQ(window->palette().color(QPalette::Window), darkWindow);
    EXPECT_EQ(ui->myTabView->palette().color(QPalette::Window), darkWindow);
    host.globalDefaults.interfaceStyle = std::nullopt;
    app->appearanceHasChanged();

    const QImage sheet = picture(20).convertToFormat(QImage::Format_Grayscale8);
    qint64 sum = 0;
    for (int y = 0; y < sheet.height(); ++y) {
        for (int x = 0; x < sheet.width(); ++x) {
            sum += qGray(sheet.pixel(x, y));
        }
    }
    EXPECT_GT(sum / (sheet.width() * sheet.height()), 230);
}

TEST_F(MonthlyPrintTest, TakesTheButtonsAwayForItsTimeAlone)
{
    int visible = -1;
    host.workspace.onOpen = [&](const QUrl&) {
        visible = ui->monthlyViewPrintBtn->isVisible() + ui->monthlyViewBackBtn->isVisible() +
                  ui->monthlyViewForwardBtn->isVisible();
    };
    print();
    EXPECT_EQ(visible, 0);
    for (const QWidget* button :
         {static_cast<QWidget*>(ui->monthlyViewPrintBtn), static_cast<QWidget*>(ui->monthlyViewBackBtn),
          static_cast<QWidget*>(ui->monthlyViewForwardBtn)}) {
        EXPECT_TRUE(button->isVisible());
    }
}

TEST_F(MonthlyPrintTest, IsReadByTheUserAloneAndGoneAfterTheProgram)
{
    print();
    EXPECT_EQ(std::filesystem::status(file().toStdString()).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    quit();
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(MonthlyPrintTest, TheNextPrintBeginsByRemovingTheLast)
{
    print();
    app->deleteMonthlyPrintFile();
    EXPECT_FALSE(QFile::exists(file()));
    app->deleteMonthlyPrintFile(); // there is none
    ui->monthlyViewForwardBtn->click();
    ui->monthlyViewPrintBtn->click();
    EXPECT_TRUE(text().contains(QStringLiteral("April 2024")));
    EXPECT_EQ(host.workspace.opened.size(), 2);
    {
        const FileSizeLimit full(1000);
        ui->monthlyViewPrintBtn->click();
    }
    EXPECT_FALSE(QFile::exists(file())) << "the last one goes before the next is written";
}

TEST_F(MonthlyPrintTest, AFileSizeLimitLeavesNoPartOfAFile)
{
    start();
    ui->monthlyViewPageAction->trigger();
    {
        const FileSizeLimit full(1000);
        ui->monthlyViewPrintBtn->click();
    }
    EXPECT_EQ(filesLeft(), QStringList());
    EXPECT_EQ(host.workspace.opened, QList<QUrl>{url()}) << "opened all the same";
    ui->monthlyViewPrintBtn->click();
    EXPECT_TRUE(text().contains(QStringLiteral("March 2024")));
}

TEST_F(MonthlyPrintTest, AFolderThatCannotBeWrittenToIsBornInSilence)
{
    host.temporaryFolder = std::filesystem::path(home.filePath(QStringLiteral("missing")).toStdString());
    print();
    EXPECT_FALSE(alert());
    EXPECT_EQ(host.workspace.opened.size(), 1);
    quit();
}

TEST_F(MonthlyPrintTest, AMissingViewerIsBornInSilence)
{
    host.workspace.succeeds = false;
    print();
    EXPECT_FALSE(alert());
    EXPECT_TRUE(QFile::exists(file()));
}

TEST_F(MonthlyPrintTest, WithoutATemporaryFolderNothingIsWrittenAnywhere)
{
    host.temporaryFolder = std::nullopt;
    print();
    EXPECT_TRUE(host.workspace.opened.isEmpty());
    EXPECT_EQ(filesLeft(), QStringList());
}

} // namespace
