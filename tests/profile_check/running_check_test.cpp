#include "support/child_program.h"
#include "support/qt_printers.h"
#include "support/test_files.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

const QString kTool = TAVRIN_PROFILE_CHECK;

/// A folder with the profile file and the replies under short names, which the tool prints.
class RunningCheck : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char *name : {"harbour.ini", "board.txt", "error_page.txt"})
            m_folder.Write(name, TestData(QString("profile_check/") + name));
        ASSERT_TRUE(QDir::setCurrent(m_folder.Path("")));
    }
    void TearDown() override { QDir::setCurrent(m_before); }

    TestFolder m_folder;
    QString m_before = QDir::currentPath();
};

TEST_F(RunningCheck, PrintsTheTable)
{
    ChildProgram tool(kTool,
                      {"--profiles", "harbour.ini", "--reply", "board.txt", "error_page.txt"});

    EXPECT_EQ(tool.ExitCode(), 1);
    EXPECT_EQ(tool.Output(), TestData("profile_check/board_table.txt"));
    EXPECT_EQ(tool.Errors(), QByteArray());
}

TEST_F(RunningCheck, PrintsTheIniSection)
{
    ChildProgram tool(kTool,
                      {"--profiles", "harbour.ini", "--format", "ini", "--reply", "board.txt"});

    EXPECT_EQ(tool.ExitCode(), 0);
    EXPECT_EQ(tool.Output(), TestData("profile_check/board_ini.txt"));
    EXPECT_EQ(tool.Errors(), QByteArray());
}

TEST_F(RunningCheck, TracesOnTheErrorOutput)
{
    ChildProgram tool(
        kTool, {"--profiles", "harbour.ini", "--format", "ini", "--trace", "--reply", "board.txt"});

    EXPECT_EQ(tool.ExitCode(), 0);
    EXPECT_EQ(tool.Output(), TestData("profile_check/board_ini.txt"));
    EXPECT_TRUE(tool.Errors().contains("nodeOpenPos=30 nodeOpenLen=4\n"));
}

TEST_F(RunningCheck, EndsWithTwoForBadUsage)
{
    ChildProgram tool(kTool, {"--profiles", "harbour.ini"});

    EXPECT_EQ(tool.ExitCode(), 2);
    EXPECT_EQ(tool.Output(), QByteArray());
    EXPECT_EQ(tool.Errors(),
              QByteArray("TavrinProfileCheck: --reply FILE... or --fetch is needed, see --help\n"));
}

TEST_F(RunningCheck, ReadsTheProgramsOwnProfileFileByDefaultAndWritesNone)
{
    m_folder.Write("TavrinWeatherProfiles.ini", TestData("profile_check/harbour.ini"));
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TAVRIN_WEATHER_FOLDER", m_folder.Path(""));
    const QStringList before = QDir(m_folder.Path("")).entryList(QDir::Files);

    ChildProgram tool(kTool, {"--format", "ini", "--reply", "board.txt"}, environment);

    EXPECT_EQ(tool.ExitCode(), 0);
    EXPECT_EQ(tool.Output(), TestData("profile_check/board_ini.txt"));
    EXPECT_EQ(QDir(m_folder.Path("")).entryList(QDir::Files), before);
}

} // namespace
