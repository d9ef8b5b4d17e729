#pragma once

#include <QLabel>

/// A label for texts that come from outside, such as addresses and credit lines: plain text in a
/// fixed number of lines, broken anywhere when it must be, with an ellipsis for what does not fit.
/// It never asks for more room because of its text; the tool tip shows all of it.
class ElidedLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(int lines, QWidget *parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QStringList LinesToPaint() const;

    int m_lines;
};
