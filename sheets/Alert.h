// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QList>

#include <functional>
#include <memory>

class QHBoxLayout;
class QLabel;
class QPushButton;
class ReadingText;

/// A question or an error put to the user: a headline, a body and buttons. Headline and body are plain text. Texts
/// that are too long for the panel scroll, with the page keys too; of a headline beyond all measure only both ends are
/// shown. The panel is never wider than its maximum: words and the titles of buttons go on in further lines.
class Alert : public QDialog {
    Q_OBJECT

public:
    enum class Style { Warning, Informational, Critical };

    /// What the buttons answer, in the order in which they were added.
    static constexpr int firstButtonReturn = 1000;
    static constexpr int secondButtonReturn = 1001;
    static constexpr int thirdButtonReturn = 1002;

    using Completion = std::function<void(int answer)>;
    using Preparation = std::function<void()>;

    explicit Alert(QWidget* parent = nullptr);

    /// Both texts are kept as they are given. Carriage returns show as ends of lines.
    void setMessageText(const QString& headline);
    QString messageText() const;
    void setInformativeText(const QString& body);
    QString informativeText() const;
    void setAlertStyle(Style style);
    Style alertStyle() const { return m_style; }

    /// Adds a button at the end. The first answers the Return key, the second the Escape key, whatever has the focus.
    QPushButton& addButton(const QString& title);
    const QList<QPushButton*>& buttons() const { return m_buttons; }

    /// Takes a button out of sight; the panel stays as wide as its title needs.
    static void hideButton(QPushButton& button);

    /// Shows the alert as a sheet on `window`, after the sheets that already wait there, and goes with it when it ends.
    /// `preparation` is called when its turn has come.
    static void beginSheet(std::unique_ptr<Alert> alert, QWidget& window, Completion completion = {},
                           Preparation preparation = {});

    /// Shows the alert and waits for the answer.
    int runModal();

    void reject() override;

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void press(qsizetype button);
    void scroll(int action);

    Style m_style = Style::Warning;
    QString m_headline;
    QString m_bodyText;
    QLabel* m_icon;
    ReadingText* m_message;
    ReadingText* m_information;
    QHBoxLayout* m_buttonRow;
    QList<QPushButton*> m_buttons;
};
