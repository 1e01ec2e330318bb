// SPDX-License-Identifier: MIT

// What becomes of a text that is half composed. Qt has no public way to stand in for an input method.
#include "table_fixture.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTest>
#include <qpa/qplatforminputcontext.h>

#include <private/qinputmethod_p.h>

namespace {

constexpr int noteColumn = 1;

/// An input method as the platform knows it: what is composed is shown in the text, and written into it when the
/// program says so.
class StandInInputMethod : public QPlatformInputContext {
public:
    StandInInputMethod() { inputMethod().testContext = this; }
    StandInInputMethod(const StandInInputMethod&) = delete;
    StandInInputMethod& operator=(const StandInInputMethod&) = delete;
    ~StandInInputMethod() override { inputMethod().testContext = nullptr; }

    void compose(const QString& text)
    {
        composed = text;
        QInputMethodEvent event(text, {});
        QApplication::sendEvent(QApplication::focusObject(), &event);
    }

    bool isValid() const override { return true; }

    void commit() override
    {
        QInputMethodEvent event;
        event.setCommitString(std::exchange(composed, {}));
        QApplication::sendEvent(QApplication::focusObject(), &event);
    }

    void reset() override
    {
        composed.clear();
        deadKey = false;
    }

    QString composed;
    bool deadKey = false; ///< pressed, and nothing after it yet

private:
    static QInputMethodPrivate& inputMethod() { return *QInputMethodPrivate::get(QGuiApplication::inputMethod()); }
};

} // namespace

class Composing : public TableTest {
protected:
    Composing()
    {
        showRows({QStringLiteral("one"), QStringLiteral("two")});
        table.editColumn(noteColumn, 0);
        press(Qt::Key_End);
    }

    StandInInputMethod inputMethod;
};

TEST_F(Composing, WhatIsHalfComposedBelongsToTheTextThatIsLeft)
{
    inputMethod.compose(QStringLiteral("に"));
    EXPECT_EQ(editor().text(), QStringLiteral("one"));
    table.endEditing();
    EXPECT_EQ(delegate.told.last(), QStringLiteral("ended oneに"));
}

TEST_F(Composing, WhatIsHalfComposedBelongsToTheTextThatIsSaved)
{
    inputMethod.compose(QStringLiteral("に"));
    table.commitEditing();
    EXPECT_EQ(delegate.told.last(), QStringLiteral("ended oneに"));
    QTest::keyClicks(&editor(), QStringLiteral("!"));
    EXPECT_EQ(editor().text(), QStringLiteral("oneに!"));
}

TEST_F(Composing, ADeadKeyIsNotFinishedInTheNextText)
{
    for (const bool byKeys : {false, true}) {
        inputMethod.deadKey = true;
        if (byKeys) {
            press(Qt::Key_Tab);
        } else {
            table.editColumn(noteColumn, 1);
        }
        EXPECT_FALSE(inputMethod.deadKey);
        table.editColumn(noteColumn, 0);
    }
}

TEST_F(Composing, ADeadKeyIsNotFinishedElsewhere)
{
    inputMethod.deadKey = true;
    elsewhere.setFocus();
    EXPECT_EQ(table.editedRow(), -1);
    EXPECT_FALSE(inputMethod.deadKey);
}
