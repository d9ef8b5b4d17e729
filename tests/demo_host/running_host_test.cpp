#include "support/child_program.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>
#include <httplib.h>

namespace {

class RunningHost : public testing::Test
{
protected:
    ChildProgram m_host{TAVRIN_DEMO_HOST, {"--port", "0", "--time", "2026-03-14T20:00"}};
    QString m_line = m_host.FirstLine();
    httplib::Client m_client{m_line.section(' ', -1).toStdString()};
};

TEST_F(RunningHost, SaysWhereItListens)
{
    EXPECT_TRUE(m_line.startsWith("Listening on http://127.0.0.1:")) << m_line.toStdString();
    EXPECT_GT(m_line.section(':', -1).toInt(), 0);
}

TEST_F(RunningHost, ServesReportsAndObservations)
{
    const auto report = m_client.Get("/data/observations/metar/decoded/KBWI.TXT");
    const auto observation = m_client.Get("/xml/current_obs/KBWI.xml");

    ASSERT_TRUE(report);
    EXPECT_EQ(report->status, 200);
    EXPECT_NE(report->body.find("\nTemperature: 73.4 F (23.0 C)\n"), std::string::npos);
    ASSERT_TRUE(observation);
    EXPECT_EQ(observation->status, 200);
    EXPECT_NE(observation->body.find("<temp_f>73.4</temp_f>"), std::string::npos);
}

TEST_F(RunningHost, ServesTheFormsOfJson)
{
    const auto position = m_client.Get(
        "/v1/forecast?latitude=39.29&longitude=-76.61&current=temperature_2m&timezone=auto");
    const auto station = m_client.Get("/stations/KBWI/observations/latest");
    const auto place = m_client.Get("/Baltimore?format=j2");

    ASSERT_TRUE(position);
    EXPECT_NE(position->body.find("\"temperature_2m\":23.0}"), std::string::npos);
    ASSERT_TRUE(station);
    EXPECT_NE(station->body.find("\"value\": 23.0,"), std::string::npos);
    ASSERT_TRUE(place);
    EXPECT_NE(place->body.find("\"temp_C\": \"23\","), std::string::npos);
}

TEST_F(RunningHost, ServesZoneListingsAndZoneFiles)
{
    const auto listing = m_client.Get("/data/forecasts/zone/md/");
    const auto file = m_client.Get("/data/forecasts/zone/md/mdz011.txt");

    ASSERT_TRUE(listing);
    EXPECT_EQ(listing->status, 200);
    EXPECT_NE(listing->body.find("<tr><td><a href=\"mdz011.txt\">"), std::string::npos);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->status, 200);
    EXPECT_EQ(file->get_header_value("Content-Type"), "text/plain");
    EXPECT_NE(file->body.find("\nMDZ011-150800-\nWestern Highbridge County-\n"), std::string::npos);
}

TEST_F(RunningHost, RefusesAPositionThatIsNone)
{
    const auto reply = m_client.Get("/v1/forecast?latitude=north");

    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 400);
    EXPECT_NE(reply->body.find("\"error\":true"), std::string::npos);
}

TEST_F(RunningHost, AnswersAPageForAnUnknownStationOrAddress)
{
    for (const char *address : {"/data/observations/metar/decoded/XXXX.TXT",
                                "/xml/current_obs/kbwi.xml", "/stations/X/observations/latest",
                                "/data/forecasts/zone/zz/", "/data/forecasts/zone/md/mdz099.txt",
                                "/data/forecasts/zone/zz/mdz011.txt", "/Atlantis", "/"}) {
        const auto reply = m_client.Get(address);

        ASSERT_TRUE(reply) << address;
        EXPECT_EQ(reply->status, 404) << address;
        EXPECT_EQ(reply->get_header_value("Content-Type"), "text/html") << address;
        EXPECT_NE(reply->body.find("<h1>Not Found</h1>"), std::string::npos) << address;
    }
}

TEST_F(RunningHost, EndsInGoodOrderWhenAsked)
{
    ASSERT_FALSE(m_line.isEmpty());

    m_host.Terminate();

    EXPECT_EQ(m_host.ExitCode(), 0);
}

TEST_F(RunningHost, LeavesATakenPortToItsOwner)
{
    const QString port = m_line.section(':', -1);

    ChildProgram second(TAVRIN_DEMO_HOST, {"--port", port});

    EXPECT_EQ(second.ExitCode(), 1);
    EXPECT_EQ(QString(second.Errors()), "TavrinDemoHost: cannot listen on port " + port + "\n");
}

TEST(HostUsage, AnswersHelpOnTheConsole)
{
    ChildProgram host(TAVRIN_DEMO_HOST, {"--help"});

    EXPECT_EQ(host.ExitCode(), 0);
    EXPECT_TRUE(host.Output().startsWith("Usage: TavrinDemoHost"));
}

TEST(HostUsage, NamesABadArgumentInOneLine)
{
    ChildProgram host(TAVRIN_DEMO_HOST, {"--prot", "80"});

    EXPECT_EQ(host.ExitCode(), 2);
    EXPECT_EQ(host.Errors(), "TavrinDemoHost: unknown argument \"--prot\", see --help\n");
}

} // namespace
