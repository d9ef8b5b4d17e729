#pragma once

#include <QEvent>
#include <QPainter>
#include <QPalette>

/// A scroll area whose frame shows that it has the focus. Most styles show this only for one-line
/// boxes, and keyboard users would lose track of the focus in here.
template <typename Area>
class WithFocusFrame : public Area
{
public:
    using Area::Area;

protected:
    bool event(QEvent *event) override
    {
        const bool done = Area::event(event);
        if (event->type() == QEvent::Paint && this->hasFocus()) {
            QPainter painter(this);
            painter.setPen(this->palette().color(QPalette::Highlight));
            painter.drawRect(this->rect().adjusted(0, 0, -1, -1));
        } else if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
            this->update();
        }
        return done;
    }
};
