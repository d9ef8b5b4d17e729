#pragma once

#include <QGroupBox>

/// A titled frame that covers other controls: opaque, and drawn a little inside its edges, where
/// the frames that it covers are drawn. The Escape key in it wants it closed.
class CoveringFrame final : public QGroupBox
{
    Q_OBJECT

public:
    CoveringFrame(int inset, const QString &title, QWidget *parent);

Q_SIGNALS:
    void Escaped();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int m_inset;
};
