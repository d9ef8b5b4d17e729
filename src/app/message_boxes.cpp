#include "app/message_boxes.h"

#include <QMessageBox>
#include <QTimer>

using namespace Qt::StringLiterals;

bool AskYesNo(QWidget *parent, const QString &title, const QString &text)
{
    return QMessageBox::question(parent, title, text) == QMessageBox::Yes;
}

void ShowFatalProblem(const QString &problem, std::chrono::milliseconds patience)
{
    QMessageBox box(QMessageBox::Critical, u"Tavrin Weather Utility"_s, problem, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &box, &QMessageBox::accept);
    timer.start(patience);
    box.exec();
}
