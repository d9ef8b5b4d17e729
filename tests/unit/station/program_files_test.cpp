#include "station/program_files.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(ProgramFilesNames, DefaultSessionHasNoSuffix)
{
    const ProgramFiles files{.folder = "/opt/tavrin"};

    EXPECT_EQ(files.Settings().path, QString("/opt/tavrin/TavrinWeatherSettings.ini"));
    EXPECT_EQ(files.MinMax().path, QString("/opt/tavrin/TavrinWeatherMinMax.ini"));
    EXPECT_EQ(files.Weather().path, QString("/opt/tavrin/Weather.ini"));
    EXPECT_EQ(files.Forecast().path, QString("/opt/tavrin/Forecast.ini"));
    EXPECT_EQ(files.Profiles().path, QString("/opt/tavrin/TavrinWeatherProfiles.ini"));
}

TEST(ProgramFilesNames, SessionIsPartOfAllButTheProfiles)
{
    const ProgramFiles files{.folder = "/opt/tavrin", .SessionId = "2"};

    EXPECT_EQ(files.Settings().path, QString("/opt/tavrin/TavrinWeatherSettings2.ini"));
    EXPECT_EQ(files.MinMax().path, QString("/opt/tavrin/TavrinWeatherMinMax2.ini"));
    EXPECT_EQ(files.Weather().path, QString("/opt/tavrin/Weather2.ini"));
    EXPECT_EQ(files.Forecast().path, QString("/opt/tavrin/Forecast2.ini"));
    EXPECT_EQ(files.Profiles().path, QString("/opt/tavrin/TavrinWeatherProfiles.ini"));
}

TEST(ProgramFilesNames, RootHasItsSeparatorAlready)
{
    const ProgramFiles files{.folder = "/"};

    EXPECT_EQ(files.Weather().path, QString("/Weather.ini"));
}

TEST(ProgramFilesNames, CodePageIsThatOfAllFiles)
{
    const ProgramFiles files{.folder = "/opt", .codePage = CodePage::Windows1252};

    EXPECT_EQ(files.Settings().codePage, CodePage::Windows1252);
    EXPECT_EQ(files.MinMax().codePage, CodePage::Windows1252);
    EXPECT_EQ(files.Weather().codePage, CodePage::Windows1252);
    EXPECT_EQ(files.Forecast().codePage, CodePage::Windows1252);
    EXPECT_EQ(files.Profiles().codePage, CodePage::Windows1252);
    EXPECT_EQ(ProgramFiles().Weather().codePage, CodePage::Utf8);
}

} // namespace
