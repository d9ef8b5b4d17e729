#pragma once

#include <QEvent>
#include <QPainter>
#include <QPalette>

/// A scroll area that shows by its frame that it has the focus. Most styles do so for boxes of one
/// line only, and whoever works by keyboard would lose the focus in here.
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
