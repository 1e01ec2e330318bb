// SPDX-License-Identifier: MIT
#include "host/linux/FolderOpenPanel.h"
#include "sheets/SheetQueue.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class OpenPanelTest : public testing::Test {
protected:
    using Folder = std::optional<std::filesystem::path>;

    OpenPanelTest() { QDir(home.path()).mkpath(QStringLiteral("Library/Old/TALV")); }
    ~OpenPanelTest() override { qputenv("HOME", formerHome); }

    /// The panel as it is up on the window.
    QDialog& open(const std::filesystem::path& folder)
    {
        qputenv("HOME", home.path().toUtf8());
        window.show();
        panel.chooseFolder(window,
                           {.title = QStringLiteral("Title"),
                            .message = QStringLiteral("First <b>line</b>\rSecond line\r"),
                            .acceptButton = QStringLiteral("Choose"),
                            .folder = folder},
                           [this](const Folder& answer) { answers.append(answer); });
        return *window.findChild<QDialog*>(QString(), Qt::FindDirectChildrenOnly);
    }

    static QFileDialog& files(QDialog& dialog) { return *dialog.findChild<QFileDialog*>(); }

    QTemporaryDir home;
    QByteArray formerHome = qgetenv("HOME");
    QWidget window;
    FolderOpenPanel panel{[](QDialog& dialog, QWidget& parent) { SheetQueue::of(parent).begin(dialog); }};
    QList<Folder> answers;
};

TEST_F(OpenPanelTest, SaysWhyAndOpensAtTheFolderInTheUsersHome)
{
    QDialog& dialog = open("~/Library/Old/TALV");
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Title"));
    EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
    const auto* message = dialog.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_EQ(message->text(), QStringLiteral("First <b>line</b>\nSecond line"));
    EXPECT_EQ(message->textFormat(), Qt::PlainText);
    EXPECT_EQ(files(dialog).directory().absolutePath(), home.filePath(QStringLiteral("Library/Old/TALV")));
    EXPECT_EQ(files(dialog).labelText(QFileDialog::Accept), QStringLiteral("Choose"));
    EXPECT_EQ(files(dialog).fileMode(), QFileDialog::Directory);
    EXPECT_TRUE(files(dialog).testOption(QFileDialog::ShowDirsOnly));
}

TEST_F(OpenPanelTest, HangsOnTheWindowAndWaitsForTheSheetThatIsUp)
{
    QDialog first(&window);
    window.show();
    SheetQueue::of(window).begin(first);
    panel.chooseFolder(window, {.title = QStringLiteral("Title"), .message = {}, .acceptButton = {}, .folder = "/"},
                       [this](const Folder& answer) { answers.append(answer); });
    EXPECT_FALSE(window.findChild<QFileDialog*>()->isVisible());
    first.done(0);
    QCoreApplication::processEvents();
    QDialog* dialog = SheetQueue::of(window).current();
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(dialog->isAncestorOf(window.findChild<QFileDialog*>()));
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    EXPECT_TRUE(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));

    QDialog next(&window);
    SheetQueue::of(window).begin(next);
    EXPECT_FALSE(next.isVisible());
    dialog->reject();
    QCoreApplication::processEvents();
    EXPECT_TRUE(next.isVisible());
    EXPECT_EQ(answers, QList<Folder>{std::nullopt});
}

TEST_F(OpenPanelTest, OpensAboveAFolderThatIsNotThere)
{
    EXPECT_EQ(files(open("~/Library/Application Support/TALV")).directory().absolutePath(),
              home.filePath(QStringLiteral("Library")));
}

TEST_F(OpenPanelTest, GivesTheFolderThatIsShownWhenItIsChosen)
{
    QDialog& dialog = open("~/Library/Old/TALV");
    QMetaObject::invokeMethod(&files(dialog), "accept");
    EXPECT_EQ(answers, QList<Folder>{Folder(home.filePath(QStringLiteral("Library/Old/TALV")).toStdString())});
}

TEST_F(OpenPanelTest, GivesNothingWhenItIsCancelled)
{
    QTest::keyClick(&open("~/Library/Old/TALV"), Qt::Key_Escape);
    EXPECT_EQ(answers, QList<Folder>{std::nullopt});
    QMetaObject::invokeMethod(&files(open("~/Library")), "reject");
    EXPECT_EQ(answers.size(), 2);
    EXPECT_EQ(answers.last(), std::nullopt);
}

} // namespace
