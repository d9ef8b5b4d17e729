#pragma once

#include <QLineEdit>

/// A read-only box for one value of any length.
///
/// A line edit cuts at 32,767 characters and takes seconds to lay out a long text; what is shown
/// here is written to a file, so the box keeps the whole value and shows its beginning only;
/// a value that does not fit ends in an ellipsis, and the tool tip shows more of it.
class ValueBox final : public QLineEdit
{
    Q_OBJECT

public:
    /// Characters that are laid out; far more than the window's width.
    static constexpr qsizetype kShownLength = 2000;

    explicit ValueBox(QWidget *parent);

    void SetValue(const QString &value);
    [[nodiscard]] const QString &Value() const { return m_value; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_value;
};
