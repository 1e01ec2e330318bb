// SPDX-License-Identifier: MIT
#include "widgets/EditCommands.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QTextEdit>
#include <gtest/gtest.h>

namespace {

TEST(EditAbilities, AreThoseOfTheControl)
{
    QApplication::clipboard()->setText(QStringLiteral("pasted"));
    const EditAbilities none;
    EXPECT_EQ(editAbilitiesOf(nullptr), none);
    const QLabel label(QStringLiteral("text"));
    EXPECT_EQ(editAbilitiesOf(&label), none);

    QLineEdit line;
    EXPECT_EQ(editAbilitiesOf(&line), EditAbilities{.paste = true});
    line.insert(QStringLiteral("a"));
    EXPECT_EQ(editAbilitiesOf(&line), (EditAbilities{.undo = true, .paste = true, .selectAll = true}));
    line.selectAll();
    EXPECT_TRUE(editAbilitiesOf(&line).cut && editAbilitiesOf(&line).copy);
    line.undo();
    EXPECT_EQ(editAbilitiesOf(&line), (EditAbilities{.redo = true, .paste = true}));
    line.setText(QStringLiteral("secret"));
    line.setEchoMode(QLineEdit::Password);
    line.selectAll();
    EXPECT_EQ(editAbilitiesOf(&line), (EditAbilities{.paste = true, .selectAll = true}));

    QTextEdit readOnly(QStringLiteral("text"));
    readOnly.setReadOnly(true);
    EXPECT_EQ(editAbilitiesOf(&readOnly), EditAbilities{.selectAll = true});
    readOnly.selectAll();
    EXPECT_EQ(editAbilitiesOf(&readOnly), (EditAbilities{.copy = true, .selectAll = true}));
    QApplication::clipboard()->clear();
}

} // namespace
