#pragma once

#include <QPlainTextEdit>
#include <QTimer>

/// `text` with a line break wherever a line would become longer than `width` characters.
[[nodiscard]] QString WithShortLines(QStringView text, qsizetype width);

/// A read-only box for a service's reply of any length.
///
/// The reply is kept as it came, and made readable and laid out only while the box is on the
/// screen, a piece at a time: doing so with megabytes at once would hold up the timers that drive
/// the program, for a box that is hardly ever looked at.
class RawTextBox final : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// Characters of the reply that are laid out at once; the first piece is there at once, too.
    static constexpr qsizetype kPiece = qsizetype{128} * 1024;

    explicit RawTextBox(QWidget *parent);

    void SetReply(const QString &reply);

    /// The whole text of the box: the reply with CR LF line ends and spaces for tabs.
    [[nodiscard]] QString Text() const;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void LayOut();
    void LayOutMore();

    QString m_reply;
    qsizetype m_laidOut = 0; ///< Characters of m_reply that are in the document.
    QTimer m_more;           ///< Runs while there is more to lay out.
};
