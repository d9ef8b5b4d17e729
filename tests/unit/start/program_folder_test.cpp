#include "start/program_folder.h"
#include "support/qt_printers.h"
#include "support/test_files.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

/// Restores the variable when the test ends.
class FindFolder : public testing::Test
{
protected:
    static constexpr auto kVariable = "TAVRIN_WEATHER_FOLDER";

    void SetUp() override
    {
        m_before = qgetenv(kVariable);
        m_wasSet = qEnvironmentVariableIsSet(kVariable);
        qunsetenv(kVariable);
    }

    void TearDown() override
    {
        if (m_wasSet)
            qputenv(kVariable, m_before);
        else
            qunsetenv(kVariable);
    }

    TestFolder executable;
    TestFolder named;

private:
    QByteArray m_before;
    bool m_wasSet = false;
};

TEST_F(FindFolder, IsThatOfTheExecutable)
{
    const ProgramFolder found = FindProgramFolder(executable.Path(""));

    EXPECT_EQ(found.folder, QDir(executable.Path("")).absolutePath());
    EXPECT_FALSE(found.folder.endsWith('/'));
    EXPECT_EQ(found.problem, QString());
}

TEST_F(FindFolder, VariableNamesAnother)
{
    qputenv(kVariable, named.Path("").toUtf8());

    const ProgramFolder found = FindProgramFolder(executable.Path(""));

    EXPECT_EQ(found.folder, QDir(named.Path("")).absolutePath());
    EXPECT_EQ(found.problem, QString());
}

TEST_F(FindFolder, EmptyVariableIsNone)
{
    qputenv(kVariable, "");

    EXPECT_EQ(FindProgramFolder(executable.Path("")).folder,
              QDir(executable.Path("")).absolutePath());
}

TEST_F(FindFolder, RelativeFolderIsMadeAbsolute)
{
    qputenv(kVariable, QDir::current().relativeFilePath(named.Path("")).toUtf8());

    const ProgramFolder found = FindProgramFolder(executable.Path(""));

    EXPECT_EQ(found.folder, QDir(named.Path("")).absolutePath());
    EXPECT_EQ(found.problem, QString());
}

TEST_F(FindFolder, VariableThatNamesNoFolderIsReportedAndKept)
{
    const QString missing = named.Path("missing");
    qputenv(kVariable, missing.toUtf8());

    const ProgramFolder found = FindProgramFolder(executable.Path(""));

    EXPECT_EQ(found.folder, missing);
    EXPECT_EQ(found.problem, "TAVRIN_WEATHER_FOLDER names no folder: " + missing);
    EXPECT_FALSE(QDir(missing).exists());
}

TEST_F(FindFolder, VariableThatNamesAFileIsReported)
{
    named.Write("file", "x");
    qputenv(kVariable, named.Path("file").toUtf8());

    EXPECT_EQ(FindProgramFolder(executable.Path("")).problem,
              "TAVRIN_WEATHER_FOLDER names no folder: " + named.Path("file"));
}

TEST_F(FindFolder, FolderThatCannotBeWrittenIsReportedAndKept)
{
    // Nobody can make files in the process folder, not even the superuser.
    const ProgramFolder found = FindProgramFolder("/proc");

    EXPECT_EQ(found.folder, QString("/proc"));
    EXPECT_EQ(found.problem, QString("The program folder cannot be written: /proc"));
}

TEST_F(FindFolder, LookingLeavesNoFileBehind)
{
    ASSERT_EQ(FindProgramFolder(executable.Path("")).problem, QString());

    EXPECT_TRUE(
        QDir(executable.Path("")).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

} // namespace
