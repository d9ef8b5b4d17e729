#pragma once

#include <QGroupBox>

/// A titled frame that covers other controls. It is opaque, and its line is drawn a little inside
/// its edges, on top of the lines of the frames that it covers.
class CoveringFrame final : public QGroupBox
{
    Q_OBJECT

public:
    /// @param inset logical pixels between the edges and the drawn frame.
    CoveringFrame(int inset, const QString &title, QWidget *parent);

    /// Shows the frame in front of its siblings, from the upper left corner of its parent on, and
    /// gives the focus to `first`, a control in it.
    void Open(QWidget *first);

Q_SIGNALS:
    void
    Escaped(); ///< The user wants the frame closed: the Escape key, which no control in it used.

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int m_inset;
};
