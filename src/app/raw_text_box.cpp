#include "app/raw_text_box.h"

namespace {

constexpr qsizetype kLongestLine = 2000; // a line is laid out as a whole

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r';
}

} // namespace

QString WithShortLines(const QString &text, qsizetype width)
{
    QString broken;
    broken.reserve(text.size() + text.size() / width);
    qsizetype lineStart = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (IsLineEnd(text[i])) {
            lineStart = i + 1;
        } else if (i - lineStart == width) {
            broken.append(u'\n');
            lineStart = i;
        }
        broken.append(text[i]);
    }
    return broken;
}

RawTextBox::RawTextBox(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false); // or every reply would be kept for an undo
    setTabChangesFocus(true);
}

void RawTextBox::SetText(const QString &text)
{
    m_text = text;
    if (isVisible())
        LayOut();
}

void RawTextBox::showEvent(QShowEvent *event)
{
    LayOut();
    QPlainTextEdit::showEvent(event);
}

void RawTextBox::hideEvent(QHideEvent *event)
{
    QPlainTextEdit::hideEvent(event);
    clear();
}

void RawTextBox::LayOut()
{
    setPlainText(WithShortLines(m_text, kLongestLine));
}
