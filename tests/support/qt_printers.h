#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <ostream>

// Readable failures: GoogleTest finds these by the name.

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
