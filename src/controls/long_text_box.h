#pragma once

#include "controls/focus_frame.h"

#include <QPlainTextEdit>
#include <QTimer>

/// `text` with a line break wherever a line would become longer than `width` characters.
[[nodiscard]] QString WithShortLines(QStringView text, qsizetype width);

/// A read-only box for a text of any length.
///
/// The text is kept as it came. It is made readable and laid out a piece at a time, on request only
/// while the box is shown: megabytes at once would hold up the timers that drive the program.
class LongTextBox final : public WithFocusFrame<QPlainTextEdit>
{
    Q_OBJECT

public:
    /// Characters that are laid out at a time. The first piece is laid out without delay.
    static constexpr qsizetype kPiece = qsizetype(128) * 1024;

    /// When the text is laid out.
    enum class LayOut
    {
        Always,
        WhileShown ///< For a box that is hardly ever looked at.
    };

    /// Makes a piece of the text readable, whatever the pieces around it are.
    using Readable = QString (*)(QStringView);

    /// @param readable null: the text is shown as it is.
    LongTextBox(LayOut when, Readable readable, QWidget *parent);

    /// Replaces the text. Half a surrogate pair becomes U+FFFD.
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
