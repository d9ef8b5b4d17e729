#include "controls/control.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class FocusWatch final : public QObject
{
public:
    FocusWatch(QWidget *control, std::function<void()> left)
        : QObject(control)
        , m_left(std::move(left))
    {
        control->installEventFilter(this);
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::FocusOut)
            m_left();
        return false;
    }

private:
    std::function<void()> m_left;
};

} // namespace

QPushButton *MakeButton(QWidget *parent, const QString &name, const QString &caption)
{
    auto *button = MakeControl<QPushButton>(parent, name, caption);
    button->setAutoDefault(true);
    return button;
}

QLabel *MakeTitle(QWidget *parent, const QString &name, const QString &caption, QWidget *buddy)
{
    auto *title = MakeControl<QLabel>(parent, name, caption);
    title->setBuddy(buddy);
    return title;
}

QLayout *InOnePlace(QWidget *one, QWidget *other)
{
    auto *place = new QGridLayout;
    place->addWidget(one, 0, 0);
    place->addWidget(other, 0, 0);
    return place;
}

void SetBold(QWidget *control, bool bold)
{
    QFont font = control->font();
    font.setBold(bold);
    control->setFont(font);
}

std::unique_ptr<QObject> WhenFocusIsLost(QWidget *control, std::function<void()> left)
{
    return std::make_unique<FocusWatch>(control, std::move(left));
}

void DescribeControlsByName(QWidget &window)
{
    window.setAccessibleDescription(window.objectName());
    for (QWidget *control : window.findChildren<QWidget *>()) {
        if (!control->objectName().startsWith("qt_"_L1)) // the toolkit's own inner parts
            control->setAccessibleDescription(control->objectName());
    }
}

void DescribeControlsOnRequest(QWidget &window)
{
    if (qEnvironmentVariable("TAVRIN_WEATHER_NAMES") == "1"_L1)
        DescribeControlsByName(window);
}
