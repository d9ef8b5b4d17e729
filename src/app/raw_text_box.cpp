#include "app/raw_text_box.h"

#include "weather/weather_data.h"

#include <QTextCursor>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr qsizetype kLongestLine = 2000; // a line is laid out as a whole

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r';
}

} // namespace

QString WithShortLines(QStringView text, qsizetype width)
{
    QString broken;
    broken.reserve(text.size() + text.size() / width);
    qsizetype copied = 0;
    qsizetype lineStart = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (IsLineEnd(text[i])) {
            lineStart = i + 1;
        } else if (i - lineStart == width) {
            broken.append(text.sliced(copied, i - copied)).append(u'\n');
            copied = i;
            lineStart = i;
        }
    }
    broken.append(text.sliced(copied));
    return broken;
}

RawTextBox::RawTextBox(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false); // or every reply would be kept for an undo
    setTabChangesFocus(true);
    m_more.setInterval(20ms); // leaves the event loop to others in between
    connect(&m_more, &QTimer::timeout, this, &RawTextBox::LayOutMore);
}

void RawTextBox::SetReply(const QString &reply)
{
    m_reply = reply;
    if (isVisible())
        LayOut();
}

QString RawTextBox::Text() const
{
    return RawDataText(m_reply);
}

void RawTextBox::showEvent(QShowEvent *event)
{
    LayOut();
    QPlainTextEdit::showEvent(event);
}

void RawTextBox::hideEvent(QHideEvent *event)
{
    QPlainTextEdit::hideEvent(event);
    m_more.stop();
    clear();
}

void RawTextBox::LayOut()
{
    clear();
    m_laidOut = 0;
    m_more.start();
    LayOutMore();
}

void RawTextBox::LayOutMore()
{
    const QStringView rest = QStringView(m_reply).sliced(m_laidOut);
    const QStringView piece = rest.first(qMin(kPiece, rest.size()));
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(WithShortLines(RawDataText(piece), kLongestLine));
    m_laidOut += piece.size();
    if (m_laidOut == m_reply.size())
        m_more.stop();
}
