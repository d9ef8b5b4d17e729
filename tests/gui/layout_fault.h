#pragma once

#include <QGroupBox>
#include <QList>
#include <QWidget>

/// The area of `control` in the window.
inline QRect InWindow(const QWidget *control)
{
    return {control->mapTo(control->window(), QPoint(0, 0)), control->size()};
}

/// What the user looks at inside `frame`: shown controls that hold no others of the window.
inline QList<QWidget *> Leaves(const QWidget *frame)
{
    QList<QWidget *> leaves;
    for (QWidget *control : frame->findChildren<QWidget *>()) {
        const bool isInner =
            !control->objectName().isEmpty() && !control->objectName().startsWith("qt_");
        const bool isFrame = qobject_cast<QGroupBox *>(control) != nullptr
                          || control->objectName().startsWith("frm");
        if (isInner && !isFrame && control->isVisible())
            leaves.append(control);
    }
    return leaves;
}

/// What is wrong with the layout of `frame`, in words; empty when nothing is.
inline QString LayoutFault(const QWidget *frame)
{
    const QList<QWidget *> leaves = Leaves(frame);
    if (leaves.isEmpty())
        return frame->objectName() + " shows nothing";
    const QRect area = InWindow(frame);
    for (qsizetype i = 0; i < leaves.size(); ++i) {
        const QWidget *control = leaves[i];
        if (!area.contains(InWindow(control)))
            return control->objectName() + " leaves " + frame->objectName();
        const QSize needed = control->minimumSizeHint();
        if (control->width() < needed.width() || control->height() < needed.height())
            return control->objectName() + " is too small for what it shows";
        for (qsizetype k = i + 1; k < leaves.size(); ++k) {
            if (InWindow(control).intersects(InWindow(leaves[k])))
                return control->objectName() + " overlaps " + leaves[k]->objectName();
        }
    }
    return {};
}
