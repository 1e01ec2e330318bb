// SPDX-License-Identifier: MIT
#include "look/ReadingText.h"
#include "support/AppFixture.h"
#include "support/Screenshot.h"

#include <QAccessible>
#include <QClipboard>
#include <QMenuBar>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBoundaryFinder>

namespace {

const QString headline = QStringLiteral("headline");
const QString body = QStringLiteral("body");
const QString ok = QStringLiteral("OK");

class AlertTest : public AppFixture {
protected:
    AlertTest() { start(); }

    /// Shows the alert; `answered` holds its answer from then on.
    Alert& show(std::unique_ptr<Alert> wanted)
    {
        Alert* shown = wanted.get();
        Alert::beginSheet(std::move(wanted), *window, [this](int response) { answered = response; });
        runQueued();
        return *shown;
    }

    void press(QWidget& focused, Qt::Key key)
    {
        QTest::keyClick(&focused, key);
        runQueued();
    }

    static std::unique_ptr<Alert> twoButtons(const QString& text = body)
    {
        return AppDelegate::copySheetAlertWithErrorString(text, headline, QStringLiteral("Yes"), QStringLiteral("No"));
    }

    std::optional<int> answered;
};

ReadingText& headlineOf(Alert& alert)
{
    return *alert.findChildren<ReadingText*>().at(0);
}

ReadingText& bodyOf(Alert& alert)
{
    return *alert.findChildren<ReadingText*>().at(1);
}

/// The alert itself, each of its visible buttons, the body and what it scrolls in, and the headline.
QList<QWidget*> placesOfFocus(Alert& alert)
{
    return {&alert,         alert.buttons().at(0),    alert.buttons().at(1),
            &bodyOf(alert), bodyOf(alert).viewport(), &headlineOf(alert)};
}

/// Whether no character, as a reader counts them, begins within the text or ends outside of it.
bool isMadeOfWholeCharacters(const QString& part, const QString& whole, qsizetype from)
{
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, whole);
    characters.setPosition(from);
    if (!characters.isAtBoundary()) {
        return false;
    }
    characters.setPosition(from + part.size());
    return characters.isAtBoundary();
}

/// How many paragraphs of the text were laid out.
int laidOutParagraphs(const ReadingText& text)
{
    int count = 0;
    for (QTextBlock block = text.document()->begin(); block.isValid(); block = block.next()) {
        count += block.layout()->lineCount() > 0 ? 1 : 0;
    }
    return count;
}
constexpr qsizetype placeCount = 6;

TEST_F(AlertTest, ReturnAnswersTheFirstButtonWhateverHasTheFocus)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        for (qsizetype place = 0; place < placeCount; ++place) {
            answered.reset();
            press(*placesOfFocus(show(twoButtons())).at(place), key);
            EXPECT_EQ(answered, 1000) << key << " at place " << place;
        }
    }
}

TEST_F(AlertTest, EscapeAnswersTheSecondButtonWhateverHasTheFocus)
{
    for (qsizetype place = 0; place < placeCount; ++place) {
        answered.reset();
        press(*placesOfFocus(show(twoButtons())).at(place), Qt::Key_Escape);
        EXPECT_EQ(answered, 1001) << "at place " << place;
    }
}

TEST_F(AlertTest, SpaceAnswersTheButtonThatHasTheFocus)
{
    press(*show(twoButtons()).buttons().at(1), Qt::Key_Space);
    EXPECT_EQ(answered, 1001);
}

TEST_F(AlertTest, WithoutASecondButtonEscapeHasNoButtonToPress)
{
    press(show(AppDelegate::copySheetAlertWithErrorString(body, headline, ok, QString())), Qt::Key_Escape);
    EXPECT_EQ(answered, std::nullopt);
    EXPECT_TRUE(alert());
    alert()->close(); // the window manager's button
    EXPECT_TRUE(alert());
}

TEST_F(AlertTest, AnAlertWithoutAnyButtonCanStillBeClosed)
{
    AppDelegate::doSheetAlert(*window, body, headline, QString(), QString());
    ASSERT_TRUE(alert());
    EXPECT_TRUE(alert()->buttons().isEmpty());
    press(*alert(), Qt::Key_Escape);
    EXPECT_FALSE(alert());
}

TEST_F(AlertTest, TheThirdButtonIsHiddenAndWidensThePanel)
{
    Alert& wide = show(twoButtons());
    ASSERT_EQ(wide.buttons().size(), 3);
    const QPushButton& third = *wide.buttons().at(2);
    EXPECT_FALSE(third.isVisible());
    EXPECT_EQ(third.text(), QStringLiteral("Some Dummy Text to make the alert panel wider. Okay then"));
    int needed = third.sizeHint().width();
    for (const QPushButton* visible : wide.buttons().first(2)) {
        needed += visible->width();
        EXPECT_TRUE(visible->isVisible());
    }
    EXPECT_GE(wide.width(), needed);
}

TEST_F(AlertTest, ANullTitleAddsNoButtonAndAnEmptyOneAnEmptyButton)
{
    AppDelegate::doSheetAlert(*window, body, headline, ok, QString());
    EXPECT_EQ(alert()->buttons().size(), 1);
    answer(1000);
    AppDelegate::doSheetAlert(*window, body, headline, ok, QStringLiteral(""));
    ASSERT_EQ(alert()->buttons().size(), 2);
    EXPECT_EQ(alert()->buttons().at(1)->text(), QString());
}

TEST_F(AlertTest, TheTitleIsTheHeadlineTheErrorTheBodyAndTheStyleAWarning)
{
    AppDelegate::doSheetAlert(*window, body, headline, ok, QString());
    EXPECT_EQ(alert()->messageText(), headline);
    EXPECT_EQ(alert()->informativeText(), body);
    EXPECT_EQ(alert()->alertStyle(), Alert::Style::Warning);
    const auto small = AppDelegate::copySheetAlertWithErrorString(body, headline, ok, ok, QString(), QString());
    const auto wide = twoButtons();
    for (const Alert* made : {small.get(), wide.get()}) {
        EXPECT_EQ(made->messageText(), headline);
        EXPECT_EQ(made->informativeText(), body);
        EXPECT_EQ(made->alertStyle(), Alert::Style::Warning);
    }
}

TEST_F(AlertTest, ButtonsWithToolTipsAreSmall)
{
    Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(body, headline, ok, QStringLiteral("No"),
                                                                   QStringLiteral("does it"), QString()));
    ASSERT_EQ(shown.buttons().size(), 2);
    EXPECT_EQ(shown.buttons().at(0)->toolTip(), QStringLiteral("does it"));
    EXPECT_EQ(shown.buttons().at(1)->toolTip(), QString());
    const std::unique_ptr<Alert> usual = twoButtons();
    for (const QPushButton* button : shown.buttons()) {
        EXPECT_EQ(button->font().pixelSize(), 11);
        EXPECT_LT(button->height(), usual->buttons().at(0)->sizeHint().height());
    }
    press(shown, Qt::Key_Escape);
    EXPECT_EQ(answered, 1001);
}

TEST_F(AlertTest, AMissingButtonTakesItsToolTipWithIt)
{
    const auto made = AppDelegate::copySheetAlertWithErrorString(body, headline, QStringLiteral(""), ok,
                                                                 QStringLiteral("first"), QStringLiteral("second"));
    ASSERT_EQ(made->buttons().size(), 1);
    EXPECT_EQ(made->buttons().at(0)->toolTip(), QStringLiteral("second"));
}

TEST_F(AlertTest, TextsAreShownAsTheyStandAndEveryKindOfLineEndBeginsALine)
{
    const QString markup = QStringLiteral("<b>x</b> &amp;");
    Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(QStringLiteral("a\rb\r\nc\nd"), markup, ok, {}));
    EXPECT_EQ(shown.informativeText(), QStringLiteral("a\rb\r\nc\nd"));
    EXPECT_EQ(shown.accessibleDescription(), QStringLiteral("a\nb\nc\nd")) << "each begins one line";
    EXPECT_EQ(headlineOf(shown).toPlainText(), markup);
    EXPECT_EQ(bodyOf(shown).toPlainText(), QStringLiteral("a\nb\nc\nd"));
}

TEST_F(AlertTest, ALongBodyScrollsInsteadOfGrowingPastTheWindow)
{
    Alert& shown = show(twoButtons(QStringLiteral("line\n").repeated(2000)));
    EXPECT_LT(shown.height(), window->height());
    QScrollBar& bar = *bodyOf(shown).verticalScrollBar();
    EXPECT_GT(bar.maximum(), 0);
    press(shown, Qt::Key_PageDown);
    EXPECT_GT(bar.value(), 0);
    press(*shown.buttons().at(0), Qt::Key_PageUp);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(AlertTest, ALongWordDoesNotWidenThePanelPastTheWindow)
{
    const QString word(5000, QLatin1Char('w'));
    Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(word, word, ok, QString()));
    EXPECT_LT(shown.width(), window->width());
}

TEST_F(AlertTest, TextsOfAllLengthsLeaveTheButtonsInTheWindow)
{
    const QString lines = QStringLiteral("\n").repeated(65536);
    const QString word(65536, QLatin1Char('w'));
    const QString wideWord(23, QLatin1Char('W')); // one that is not broken
    const QString words = QStringLiteral("day note ").repeated(7000);
    for (const QString& text : {lines, word, words, wideWord, lines.first(400), word.first(400)}) {
        Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(body, text, ok, QString()));
        EXPECT_EQ(shown.messageText(), text);
        EXPECT_LT(shown.width(), window->width());
        EXPECT_LT(shown.height(), window->height());
        EXPECT_TRUE(shown.rect().contains(shown.buttons().at(0)->geometry()));
        EXPECT_EQ(headlineOf(shown).horizontalScrollBar()->maximum(), 0) << "no word is cut off";
        answer(1000);
    }
}

TEST_F(AlertTest, AWordTooLongForALineGoesOnInTheNext)
{
    const QString longWord(90, QLatin1Char('W'));
    AppDelegate::doSheetAlert(*window, longWord, longWord, ok, QString());
    for (const ReadingText* text : {&headlineOf(*alert()), &bodyOf(*alert())}) {
        EXPECT_EQ(text->horizontalScrollBar()->maximum(), 0);
        EXPECT_GT(text->document()->begin().layout()->lineCount(), 1);
        EXPECT_EQ(text->toPlainText(), longWord) << "nothing is put into what is copied";
    }
}

/// Emojis that are joined of several, letters with marks, flags: wherever the middle is taken out, none is halved.
TEST_F(AlertTest, AShortenedHeadlineHalvesNoCharacter)
{
    for (const QString& character :
         {QStringLiteral("😀"), QStringLiteral("👩‍👩‍👧‍👦"), QStringLiteral("e\u0301\u0323"),
          QStringLiteral("🇩🇪"), QStringLiteral("👍🏽")}) {
        for (int before = 0; before < 16; ++before) {
            const QString whole = QString(before, u'x') + character.repeated(300);
            Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(body, whole, ok, QString()));
            const QStringList parts = headlineOf(shown).toPlainText().split(u'…');
            ASSERT_EQ(parts.size(), 2);
            EXPECT_TRUE(isMadeOfWholeCharacters(parts.at(0), whole, 0)) << before;
            EXPECT_TRUE(isMadeOfWholeCharacters(parts.at(1), whole, whole.size() - parts.at(1).size())) << before;
            EXPECT_TRUE(whole.startsWith(parts.at(0)) && whole.endsWith(parts.at(1)));
            EXPECT_LE(parts.at(0).size() + parts.at(1).size(), 420);
            answer(1000);
        }
    }
}

TEST_F(AlertTest, OfAVeryLongBodyOnlyWhatIsSeenIsLaidOut)
{
    QString lines;
    for (int line = 0; line < 20'000; ++line) {
        lines += QStringLiteral("line %1\n").arg(line);
    }
    lines += QStringLiteral("the end");
    Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(lines, headline, ok, QString()));
    grabbed(shown);
    ReadingText& text = bodyOf(shown);
    EXPECT_LT(laidOutParagraphs(text), 200);
    EXPECT_EQ(shown.informativeText(), lines);
    EXPECT_EQ(shown.accessibleDescription(), lines);
    text.verticalScrollBar()->setValue(text.verticalScrollBar()->maximum());
    grabbed(shown);
    EXPECT_LT(laidOutParagraphs(text), 400);
    const QTextCursor atBottom = text.cursorForPosition({0, text.viewport()->height() - 1});
    EXPECT_EQ(atBottom.block().text(), QStringLiteral("the end"));
}

TEST_F(AlertTest, TheTextsAreSpokenAsLabelsAre)
{
    Alert& shown = show(twoButtons());
    for (ReadingText* text : {&headlineOf(shown), &bodyOf(shown)}) {
        const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(text);
        ASSERT_TRUE(spoken);
        EXPECT_EQ(spoken->role(), QAccessible::StaticText);
        EXPECT_EQ(spoken->text(QAccessible::Name), text->toPlainText());
    }
}

TEST_F(AlertTest, TheMouseSelectsTextAndTheKeysCopyIt)
{
    Alert& shown = show(twoButtons(QStringLiteral("copied")));
    QTest::mouseDClick(bodyOf(shown).viewport(), Qt::LeftButton, {}, {10, 5});
    QTest::keyClick(&bodyOf(shown), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("copied"));
}

TEST_F(AlertTest, ATitleTooWideForTheWindowGoesOnInFurtherLines)
{
    window->setMinimumSize(1, 1);
    window->resize(420, 500);
    const QString title =
        QStringLiteral("Thanks for letting me know. I'll look for my TALV data or enter myself").repeated(2);
    Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(body, headline, title, ok));
    EXPECT_LE(shown.width(), window->width());
    const QPushButton& button = *shown.buttons().at(0);
    EXPECT_EQ(button.text(), title);
    EXPECT_TRUE(shown.rect().contains(button.geometry()));
    EXPECT_GE(button.height(), 4 * button.fontMetrics().height());
    saveScreenshot(grabbed(shown));
}

TEST_F(AlertTest, NoAlertIsWiderThanTheWindowThoughAHiddenButtonIs)
{
    window->setMinimumSize(1, 1);
    window->resize(420, 500);
    const Alert& shown = show(twoButtons(QStringLiteral("word ").repeated(400)));
    EXPECT_LE(shown.width(), window->width());
    EXPECT_LE(shown.height(), window->height());
    for (const QPushButton* button : shown.buttons().first(2)) {
        EXPECT_TRUE(shown.rect().contains(button->geometry()));
    }
}

TEST_F(AlertTest, AnOpenAlertStaysWithinAWindowThatIsMadeSmaller)
{
    window->setMinimumSize(1, 1);
    const Alert& shown = show(twoButtons(QStringLiteral("word ").repeated(400)));
    const int former = shown.width();
    window->resize(420, 400);
    runQueued();
    EXPECT_LE(shown.width(), window->width());
    EXPECT_LE(shown.height(), window->height());
    window->resize(1080, 760);
    runQueued();
    EXPECT_EQ(shown.width(), former);
}

TEST_F(AlertTest, OfAHeadlineBeyondAllMeasureBothEndsAreShown)
{
    const QString headlineText = QStringLiteral("begins ") + QString(65536, u'9') + QStringLiteral(" ends");
    Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(body, headlineText, ok, QString()));
    EXPECT_EQ(shown.messageText(), headlineText);
    EXPECT_LT(shown.windowTitle().size(), 500);
    EXPECT_TRUE(shown.windowTitle().startsWith(QStringLiteral("begins 99")));
    EXPECT_TRUE(shown.windowTitle().contains(QStringLiteral("9…9")));
    EXPECT_TRUE(shown.windowTitle().endsWith(QStringLiteral("99 ends")));
}

TEST_F(AlertTest, AHeadlineOfManyLinesScrolls)
{
    Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(body, QStringLiteral("9\n").repeated(100), ok, {}));
    QScrollBar& bar = *headlineOf(shown).verticalScrollBar();
    press(shown, Qt::Key_PageDown);
    EXPECT_GT(bar.value(), 0);
}

TEST_F(AlertTest, AShortBodyDoesNotScroll)
{
    EXPECT_FALSE(bodyOf(show(twoButtons())).isCut());
}

TEST_F(AlertTest, AFewLinesDoNotScrollWhateverLineEndsTheyHave)
{
    for (const char* shownHeadline : {"Reminder 'Fly'\r\rscheduled for date: Jul 4, 2024", "one line", "a\nb\nc\nd"}) {
        Alert& shown = show(AppDelegate::copySheetAlertWithErrorString(
            QStringLiteral("When the Notification Center reminder appears, click on it to open the note with Velumora"),
            QString::fromLatin1(shownHeadline), ok, {}));
        runQueued();
        EXPECT_FALSE(headlineOf(shown).isCut() || bodyOf(shown).isCut()) << shownHeadline;
        press(shown, Qt::Key_Return);
        runQueued();
    }
}

TEST_F(AlertTest, ASheetHangsAtTheTopOfItsWindowAndBlocksItAlone)
{
    const Alert& shown = show(twoButtons());
    EXPECT_EQ(shown.windowModality(), Qt::WindowModal);
    EXPECT_EQ(shown.parentWidget(), window.get());
    const auto expectAttached = [&] {
        const QPoint place = window->mapFromGlobal(shown.pos());
        EXPECT_EQ(place.y(), window->menuBar()->geometry().bottom() + 1);
        EXPECT_NEAR(place.x() + shown.width() / 2, window->width() / 2, 1);
    };
    expectAttached();
    window->move(window->pos() + QPoint(40, 30));
    runQueued();
    expectAttached();
    window->resize(window->width() + 100, window->height());
    runQueued();
    expectAttached();
}

TEST_F(AlertTest, ASecondSheetWaitsForTheFirst)
{
    for (const char* text : {"one", "two"}) {
        AppDelegate::doSheetAlert(*window, QString(), QString::fromLatin1(text), ok, QString());
    }
    EXPECT_EQ(alert()->messageText(), QStringLiteral("one"));
    answer(1000);
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("two"));
    answer(1000);
    EXPECT_FALSE(alert());
}

struct WebPageCase {
    const char* secondTitle;
    int answer;
    int pagesOpened;
};

class AlertOnMainWindow : public AlertTest, public ::testing::WithParamInterface<WebPageCase> {};

TEST_P(AlertOnMainWindow, OpensTheWebPageOnlyForTheFirstOfTwoButtons)
{
    app->showAlertOnMainWindow(headline, body, ok, QString::fromLatin1(GetParam().secondTitle));
    EXPECT_EQ(alert()->messageText(), headline);
    EXPECT_EQ(alert()->informativeText(), body);
    answer(GetParam().answer);
    EXPECT_EQ(host.workspace.opened.size(), GetParam().pagesOpened);
    EXPECT_FALSE(alert());
}

INSTANTIATE_TEST_SUITE_P(Answers, AlertOnMainWindow,
                         ::testing::Values(WebPageCase{"Later", 1000, 1}, WebPageCase{"Later", 1001, 0},
                                           WebPageCase{"", 1000, 0}));

} // namespace
