#include "controls/covering_frame.h"

#include <QKeyEvent>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

CoveringFrame::CoveringFrame(int inset, const QString &title, QWidget *parent)
    : QGroupBox(title, parent)
    , m_inset(inset)
{
    setAutoFillBackground(true);
}

void CoveringFrame::Open(QWidget *first)
{
    move(0, 0);
    raise();
    show();
    first->setFocus();
}

// Not a shortcut, which would also close the frame of a list that the key closes.
void CoveringFrame::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT Escaped();
    else
        QGroupBox::keyPressEvent(event);
}

void CoveringFrame::paintEvent(QPaintEvent * /*event*/)
{
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    // Moved as a whole: some styles put the title where the widget begins.
    option.rect.setSize(size() - 2 * QSize(m_inset, m_inset));
    QStylePainter painter(this);
    painter.translate(m_inset, m_inset);
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
}
