#pragma once

#include "controls/tabular_text.h"
#include "controls/tool_tip.h"

#include <QLabel>

/// A label for external texts such as addresses and credit lines: plain text in a fixed number of
/// lines, wrapped anywhere if it must be, with an ellipsis for what does not fit. It never requests
/// more space because of its text; the tool tip shows what does not fit.
///
/// All digits are as wide as the widest one, so that a countdown does not move.
class ElidedLabel final : public QLabel, public ToolTipSource
{
    Q_OBJECT

public:
    explicit ElidedLabel(int lines, QWidget *parent);

    /// Where the ellipsis is in the last line; at its end unless set.
    void SetElideMode(Qt::TextElideMode mode);

    /// Requests the space that `text` needs on one line, whatever its digits.
    void SetRoomFor(const QString &text);

    /// Shows the text in a muted colour.
    void SetMuted();

    /// The lines as painted.
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

/// Makes a label for a notice, such as a credit line: muted, in two lines.
[[nodiscard]] ElidedLabel *MakeNotice(QWidget *parent, const QString &name, const QString &text);
