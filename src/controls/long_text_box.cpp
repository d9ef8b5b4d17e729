#include "controls/long_text_box.h"

#include "core/text.h"

#include <QTextCursor>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr qsizetype kLongestLine = 2000; // a line is laid out as a whole

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r';
}

/// The next piece of the text; a pair of CR and LF stays together, and so does a surrogate pair.
QStringView NextPiece(QStringView text, qsizetype length)
{
    QStringView piece = FirstCharacters(text, length);
    if (piece.size() > 1 && piece.size() < text.size() && piece.endsWith(u'\r'))
        piece.chop(1);
    return piece;
}

} // namespace

QString WithShortLines(QStringView text, qsizetype width)
{
    QString broken;
    broken.reserve(text.size() + text.size() / width);
    qsizetype copied = 0;
    qsizetype lineStart = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype units = text[i].isHighSurrogate() ? 2 : 1; // a pair stays in one line
        if (IsLineEnd(text[i])) {
            lineStart = i + 1;
        } else if (i - lineStart + units > width) {
            broken.append(text.sliced(copied, i - copied)).append(u'\n');
            copied = i;
            lineStart = i;
        }
    }
    broken.append(text.sliced(copied));
    return broken;
}

LongTextBox::LongTextBox(LayOut when, Readable readable, QWidget *parent)
    : WithFocusFrame(parent)
    , m_when(when)
    , m_readable(readable)
{
    setReadOnly(true);
    setUndoRedoEnabled(false); // or every text would be kept for an undo
    setTabChangesFocus(true);
    m_more.setInterval(20ms); // leaves the event loop to others in between
    connect(&m_more, &QTimer::timeout, this, &LongTextBox::LayOutMore);
}

void LongTextBox::SetText(const QString &text)
{
    m_text = WithoutLoneSurrogates(text);
    if (m_when == LayOut::Always || isVisible())
        Begin();
}

QString LongTextBox::Text() const
{
    return m_readable == nullptr ? m_text : m_readable(m_text);
}

void LongTextBox::showEvent(QShowEvent *event)
{
    if (m_when == LayOut::WhileShown)
        Begin();
    QPlainTextEdit::showEvent(event);
}

void LongTextBox::hideEvent(QHideEvent *event)
{
    QPlainTextEdit::hideEvent(event);
    if (m_when == LayOut::Always)
        return;
    m_more.stop();
    clear();
}

void LongTextBox::Begin()
{
    clear();
    m_laidOut = 0;
    m_more.start();
    LayOutMore();
}

void LongTextBox::LayOutMore()
{
    const QStringView piece = NextPiece(QStringView(m_text).sliced(m_laidOut), kPiece);
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    const QString readable = m_readable == nullptr ? piece.toString() : m_readable(piece);
    end.insertText(WithShortLines(readable, kLongestLine));
    m_laidOut += piece.size();
    if (m_laidOut == m_text.size())
        m_more.stop();
}
