#pragma once

#include <QByteArray>
#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QStringView>

#include <ostream>

// These make failures readable; GoogleTest finds them by name.

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(QStringView text, std::ostream *out)
{
    *out << '"' << text.toString().toStdString() << '"';
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toPercentEncoding(" \r\n[]=;:/,.!?#").toStdString() << '"';
}

inline void PrintTo(const QPointF &point, std::ostream *out)
{
    *out << '(' << point.x() << ", " << point.y() << ')';
}

inline void PrintTo(const QLineF &line, std::ostream *out)
{
    PrintTo(line.p1(), out);
    *out << " to ";
    PrintTo(line.p2(), out);
}

inline void PrintTo(const QRectF &area, std::ostream *out)
{
    *out << area.width() << " x " << area.height() << " at ";
    PrintTo(area.topLeft(), out);
}
