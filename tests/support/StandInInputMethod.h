// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QInputMethodEvent>
#include <qpa/qplatforminputcontext.h>

#include <utility>

#include <private/qinputmethod_p.h>

/// An input method as the platform knows it: what is composed is shown in the text, and written into it when the
/// program says so. Qt has no public way to stand in for one.
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
