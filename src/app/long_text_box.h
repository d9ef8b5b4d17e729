#pragma once

#include "controls/focus_frame.h"

#include <QPlainTextEdit>
#include <QTimer>

/// `text` with a line break wherever a line would become longer than `width` characters.
[[nodiscard]] QString WithShortLines(QStringView text, qsizetype width);

/// A read-only box for a text of any length.
///
/// The text is kept as it came; it is made readable and laid out a piece at a time, if asked so
/// only while the box is on the screen. Doing so with megabytes at once would hold up the timers
/// that drive the program.
class LongTextBox final : public WithFocusFrame<QPlainTextEdit>
{
    Q_OBJECT

public:
    /// Characters that are laid out at once; the first piece is there at once, too.
    static constexpr qsizetype kPiece = qsizetype(128) * 1024;

    /// When the text is laid out.
    enum class LayOut
    {
        Always,
        WhileShown ///< For a box that is hardly ever looked at.
    };

    /// Makes a piece of the text readable, whatever stands around it.
    using Readable = QString (*)(QStringView);

    /// @param readable null: the text is shown as it is.
    LongTextBox(LayOut when, Readable readable, QWidget *parent);

    void SetText(const QString &text);

    /// The whole text of the box, made readable.
    [[nodiscard]] QString Text() const;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void Begin();
    void LayOutMore();

    LayOut m_when;
    Readable m_readable;
    QString m_text;
    qsizetype m_laidOut = 0; ///< Characters of m_text that are in the document.
    QTimer m_more;           ///< Runs while there is more to lay out.
};
