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

/// A question or an error for the user: a headline, a body and buttons. Headline and body are plain text. Texts too
/// long for the panel scroll, also with the page keys; an excessively long headline is shown without its middle. The
/// panel never exceeds its maximum width: words and button titles wrap.
class Alert : public QDialog {
    Q_OBJECT

public:
    enum class Style { Warning, Informational, Critical };

    /// The answers of the buttons, in the order in which they were added.
    static constexpr int firstButtonReturn = 1000;
    static constexpr int secondButtonReturn = 1001;
    static constexpr int thirdButtonReturn = 1002;

    using Completion = std::function<void(int answer)>;
    using Preparation = std::function<void()>;

    explicit Alert(QWidget* parent = nullptr);

    /// Both texts are kept as given. Carriage returns are shown as line ends.
    void setMessageText(const QString& headline);
    QString messageText() const;
    void setInformativeText(const QString& body);
    QString informativeText() const;
    void setAlertStyle(Style style);
    Style alertStyle() const { return m_style; }

    /// Adds a button at the end. The Return key presses the first, the Escape key the second, whatever has the focus.
    QPushButton& addButton(const QString& title);
    const QList<QPushButton*>& buttons() const { return m_buttons; }

    /// Hides a button; the panel stays wide enough for its title.
    static void hideButton(QPushButton& button);

    /// Shows the alert as a sheet on `window`, after the sheets that wait there already, and deletes it when it ends.
    /// `preparation` is called when its turn comes.
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
