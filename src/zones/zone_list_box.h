#pragma once

#include "controls/focus_frame.h"

#include <QListWidget>

/// The list of the zones that were found. Shows each entry in one line, whatever a file put into
/// it, and while it is empty a hint how to fill it.
class ZoneListBox final : public WithFocusFrame<QListWidget>
{
    Q_OBJECT

public:
    explicit ZoneListBox(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};
