#pragma once

#include "controls/tabular_text.h"
#include "controls/tool_tip.h"

#include <QLabel>

/// A label for texts that come from outside, such as addresses and credit lines: plain text in a
/// fixed number of lines, broken anywhere when it must be, with an ellipsis for what does not fit.
/// It never asks for more room because of its text; the tool tip shows what does not fit.
///
/// All digits take the room of the widest one, so that a text that counts stands still.
class ElidedLabel final : public QLabel, public ToolTipSource
{
    Q_OBJECT

public:
    explicit ElidedLabel(int lines, QWidget *parent);

    /// Where the ellipsis stands in the last line; at its end unless set.
    void SetElideMode(Qt::TextElideMode mode);

    /// Asks for the room that `text` takes in one line, whatever its digits.
    void SetRoomFor(const QString &text);

    /// Shows the text with less weight.
    void SetMuted();

    /// The lines that are painted.
    [[nodiscard]] QStringList Lines() const;

    [[nodiscard]] QString ToolTipText() const override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] TextWidth Width() const; ///< In the label's font.
    [[nodiscard]] QString ShownText() const;
    [[nodiscard]] QString Elided(const QString &line, const QString &widest) const;
    void PaintLine(QPainter &painter, int top, const QString &line) const;

    int m_lines;
    QString m_roomFor;
    Qt::TextElideMode m_elideMode = Qt::ElideRight;
    bool m_muted = false;
};
