#pragma once

#include <QFile>
#include <QString>
#include <QTest>

/// Milliseconds that a step of the running program may take: far more than it needs, because a slow
/// machine is no failure.
inline constexpr int kPatience = 30'000;

inline QByteArray Bytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

inline QByteArray Expected(const QString &name)
{
    return Bytes(QStringLiteral(TAVRIN_TEST_DATA "/e2e/") + name);
}

inline void Write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    QCOMPARE(file.write(bytes), bytes.size());
}
