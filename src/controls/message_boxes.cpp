#include "controls/message_boxes.h"

#include <QIcon>
#include <QMessageBox>
#include <QPainter>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSignSize = 32;
constexpr int kSignTextSize = 20;
constexpr QColor kQuestionColor(46, 125, 180); // seen on light and on dark windows
constexpr QColor kProblemColor(192, 57, 43);

/// A sign in a disk, sharp at every scale of the screen.
QPixmap SignPixmap(const QString &sign, const QColor &disk, const QWidget &box)
{
    const qreal ratio = box.devicePixelRatioF();
    QPixmap pixmap(QSize(kSignSize, kSignSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(disk);
    const QRect room(0, 0, kSignSize, kSignSize);
    painter.drawEllipse(room.adjusted(1, 1, -1, -1));
    QFont font = box.font();
    font.setBold(true);
    font.setPixelSize(kSignTextSize);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(room, int(Qt::AlignCenter), sign);
    return pixmap;
}

/// Shows a sign of our own where the desktop has none: the toolkit's is a picture of few pixels.
void UseSign(QMessageBox &box, const QString &themeName, const QString &sign, const QColor &disk)
{
    if (!QIcon::hasThemeIcon(themeName))
        box.setIconPixmap(SignPixmap(sign, disk, box));
}

} // namespace

bool AskYesNo(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, parent);
    box.setTextFormat(Qt::PlainText);
    UseSign(box, u"dialog-question"_s, u"?"_s, kQuestionColor);
    return box.exec() == QMessageBox::Yes;
}

void ShowFatalProblem(const QString &problem, std::chrono::milliseconds patience)
{
    QMessageBox box(QMessageBox::Critical, u"Tavrin Weather Utility"_s, problem, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    UseSign(box, u"dialog-error"_s, u"!"_s, kProblemColor);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &box, &QMessageBox::accept);
    timer.start(patience);
    box.exec();
}
