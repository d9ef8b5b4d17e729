#pragma once

#include <QPlainTextEdit>

/// Reply text with a line break after every `width` characters that have none.
[[nodiscard]] QString WithShortLines(const QString &text, qsizetype width);

/// A read-only box for a service's reply of any length.
///
/// The text is kept as it is and laid out only while the box is on the screen: laying out megabytes
/// would hold up the timers that drive the program, for a box that is hardly ever looked at.
class RawTextBox final : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit RawTextBox(QWidget *parent);

    void SetText(const QString &text);
    [[nodiscard]] const QString &Text() const { return m_text; }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void LayOut();

    QString m_text;
};
