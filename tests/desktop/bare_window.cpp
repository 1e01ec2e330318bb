// SPDX-License-Identifier: MIT

// The least program that a desktop user would call one: a menu bar and a text editor. It is what the desktop driver
// is tried on, and the yardstick that start times and memory are held against.

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);

    auto* editor = new QPlainTextEdit;
    editor->setAccessibleName(QStringLiteral("Page"));

    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare window"));
    window.setCentralWidget(editor);

    QMenu* file = window.menuBar()->addMenu(QStringLiteral("File"));
    QAction* wrap = file->addAction(QStringLiteral("Wrap lines"));
    wrap->setCheckable(true);
    wrap->setChecked(true);
    QObject::connect(wrap, &QAction::toggled, editor, [editor](bool on) {
        editor->setLineWrapMode(on ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    });
    QAction* quit = file->addAction(QStringLiteral("Quit"));
    quit->setShortcut(QKeySequence::Quit);
    QObject::connect(quit, &QAction::triggered, &window, &QWidget::close);

    window.resize(640, 480);
    window.show();
    return QApplication::exec();
}
