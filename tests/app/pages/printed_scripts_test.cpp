// SPDX-License-Identifier: MIT
// Every script that a note may be written in is found again in the printed month, by another program (pdftotext).
#include "support/AppFixture.h"
#include "support/Pixels.h"
#include "support/ScriptFonts.h"

#include <QProcess>
#include <QRegularExpression>
#include <QSet>

#include <memory>

namespace {

struct ScriptRow {
    const char* name;
    const char* words; ///< each is looked for
};

void PrintTo(const ScriptRow& row, std::ostream* stream)
{
    *stream << row.name;
}

bool isColourful(const QColor& color)
{
    return color.saturation() > 80 && color.value() > 100;
}

class PrintedScriptTest : public AppFixture {
protected:
    PrintedScriptTest() { host.temporaryFolder = home.path().toStdString(); }

    /// Prints March with `text` as the note of the 12th, and reads all of it back, without the marks of direction that
    /// the reader itself puts around what is written from the right.
    QString printed(const char* text)
    {
        putNotes({note(2024, 3, 12, text)});
        start();
        ui->printAction->trigger();
        QProcess reader;
        reader.start(
            QStringLiteral("pdftotext"),
            {QStringLiteral("-layout"), home.filePath(QStringLiteral("MyPrintedView.pdf")), QStringLiteral("-")});
        EXPECT_TRUE(reader.waitForFinished());
        return QString::fromUtf8(reader.readAllStandardOutput())
            .remove(QRegularExpression(QStringLiteral("[\u202A-\u202E]")));
    }

    static void SetUpTestSuite() { fonts = std::make_unique<ScriptFonts>(); }
    static void TearDownTestSuite() { fonts.reset(); }

    static inline std::unique_ptr<ScriptFonts> fonts;
};

class PrintedWordsTest : public PrintedScriptTest, public ::testing::WithParamInterface<ScriptRow> {};

TEST_P(PrintedWordsTest, EachWordIsFound)
{
    ASSERT_EQ(fonts->missing(), QStringList());
    const QString page = printed(GetParam().words);
    for (const QString& word : QString::fromUtf8(GetParam().words).split(u' ')) {
        EXPECT_TRUE(page.contains(word)) << word.toStdString() << " is not in\n" << page.toStdString();
    }
}

TEST_F(PrintedScriptTest, EmojiArePrintedInTheirColours)
{
    ASSERT_EQ(fonts->missing(), QStringList());
    (void)printed("🎂🎂");
    const QString picture = home.filePath(QStringLiteral("sheet"));
    QProcess painter;
    painter.start(QStringLiteral("pdftoppm"), {QStringLiteral("-singlefile"), QStringLiteral("-png"),
                                               home.filePath(QStringLiteral("MyPrintedView.pdf")), picture});
    ASSERT_TRUE(painter.waitForFinished());
    const QImage sheet(picture + QStringLiteral(".png"));
    const QRect cakes = placeOf(sheet.copy(0, 0, sheet.width() / 2, sheet.height()), isColourful); // without today
    constexpr double size = 9 * 150 / 72.0;                                                        // of a letter
    EXPECT_NEAR(cakes.height(), size, size / 2);
    EXPECT_NEAR(cakes.width(), 2 * size, size);

    QProcess reader;
    reader.start(QStringLiteral("pdfimages"),
                 {QStringLiteral("-list"), home.filePath(QStringLiteral("MyPrintedView.pdf"))});
    ASSERT_TRUE(reader.waitForFinished());
    QSet<QString> objects;
    for (const QString& line : QString::fromUtf8(reader.readAllStandardOutput()).split(u'\n').mid(2)) {
        objects.insert(line.simplified().section(u' ', 10, 10));
    }
    objects.remove(QString());
    EXPECT_EQ(objects.size(), 1) << "the same picture is kept once";
}

INSTANTIATE_TEST_SUITE_P(Scripts, PrintedWordsTest,
                         ::testing::Values(ScriptRow{"Latin", "office waffle final Łódź naïve"},
                                           ScriptRow{"LatinWithMarks", "e\u0301te\u0301 Việt"},
                                           ScriptRow{"Cyrillic", "Привет Йод"}, ScriptRow{"Greek", "Ελλάδα ώρα"},
                                           ScriptRow{"Hebrew", "שלום עולם"}, ScriptRow{"PointedHebrew", "שָׁלוֹם"},
                                           ScriptRow{"Arabic", "مرحبا بالعالم السلام"},
                                           ScriptRow{"Persian", "می‌خواهم گچپژ"},
                                           ScriptRow{"HebrewAmongLatin", "call דוד today"},
                                           ScriptRow{"Devanagari", "नमस्ते क्षेत्र हिन्दी"}, ScriptRow{"Tamil", "தமிழ் வணக்கம்"},
                                           ScriptRow{"Thai", "สวัสดี น้ำ"}, ScriptRow{"Chinese", "今日 北京 你好"},
                                           ScriptRow{"Japanese", "日本語 こんにちは"},
                                           ScriptRow{"Korean", "한국어 안녕"},
                                           ScriptRow{"Emoji", "🎂 👨‍👩‍👧 👍🏽 🇩🇪 ❤️"},
                                           ScriptRow{"EmojiAmongHebrew", "🎂 שלום"}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
