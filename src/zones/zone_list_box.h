#pragma once

#include "controls/focus_frame.h"

#include <QListWidget>

/// The list of zones found. Shows each entry on one line, whatever a file put into it, and while
/// empty a hint how to fill it.
class ZoneListBox final : public WithFocusFrame<QListWidget>
{
    Q_OBJECT

public:
    explicit ZoneListBox(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};
