#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A file of tests/data.
inline QByteArray TestData(const QString &name)
{
    QFile file(QStringLiteral(TAVRIN_TEST_DATA "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

/// A folder of its own for each test, removed with it.
class TestFolder
{
public:
    [[nodiscard]] QString Path(const QString &name) const { return m_folder.filePath(name); }

    /// The bytes of a file in it; empty if it is not there.
    [[nodiscard]] QByteArray Bytes(const QString &name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void Write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

private:
    QTemporaryDir m_folder;
};
