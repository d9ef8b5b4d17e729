#pragma once

#include <QPushButton>

/// A button that chooses a page, drawn as a tab. The one of the current page is disabled, but not
/// greyed: it is the page's title. A caption too wide for the fixed width is drawn narrower.
class TabButton final : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent *event) override;
};
