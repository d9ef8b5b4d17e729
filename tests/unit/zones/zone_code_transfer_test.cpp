#include "support/fake_transfers.h"
#include "support/qt_printers.h"
#include "support/recorded_status.h"
#include "support/recorded_trace.h"
#include "zones/zone_code_transfer.h"

#include <gtest/gtest.h>

namespace {

class ZoneCodeTransfer : public testing::Test
{
protected:
    void SetUp() override
    {
        handle = http.Net_HTTPThreadOpen("80");
        http.Net_HTTPThreadGet(handle, "http://host/zones");
    }

    TransferHandle handle = 0;
    FakeTransfers http;
    RecordedStatus status;
    RecordedTrace trace;
};

TEST_F(ZoneCodeTransfer, IsLeftAloneWhileItRuns)
{
    EXPECT_EQ(CheckZoneCodeTransfer(handle, http, status), std::nullopt);

    EXPECT_EQ(handle, 1);
    EXPECT_EQ(trace.lines, QStringList{"Checking NOAAZoneCodeHandle 1"});
    EXPECT_TRUE(status.texts.isEmpty());
    EXPECT_TRUE(http.open.contains(1));
}

TEST_F(ZoneCodeTransfer, DeliversItsText)
{
    http.Finish(handle, "zones");

    EXPECT_EQ(CheckZoneCodeTransfer(handle, http, status), std::optional<QString>("zones"));

    EXPECT_EQ(handle, 0);
    EXPECT_TRUE(http.open.empty());
    EXPECT_EQ(trace.lines,
              (QStringList{"Checking NOAAZoneCodeHandle 1", "net_HTTPThreadReturnText completed"}));
    EXPECT_EQ(status.texts, QStringList{"Finished retrieving zone codes."});
}

TEST_F(ZoneCodeTransfer, DeliversAnEmptyText)
{
    http.Finish(handle, "");

    EXPECT_EQ(CheckZoneCodeTransfer(handle, http, status), std::optional<QString>(""));
}

TEST_F(ZoneCodeTransfer, TellsThatItFailed)
{
    http.Fail(handle);

    EXPECT_EQ(CheckZoneCodeTransfer(handle, http, status), std::nullopt);

    EXPECT_EQ(handle, 0);
    EXPECT_TRUE(http.open.empty());
    EXPECT_EQ(trace.lines,
              (QStringList{"Checking NOAAZoneCodeHandle 1", "net_HTTPThreadReturnText errored"}));
    EXPECT_EQ(status.texts, QStringList{"An error occurred while retrieving zone codes."});
}

TEST_F(ZoneCodeTransfer, IsNotReceivedWithoutAHandle)
{
    http.calls.clear();
    TransferHandle none = 0;

    EXPECT_EQ(ReceiveZoneCodes(none, http, status), std::nullopt);

    EXPECT_TRUE(trace.lines.isEmpty());
    EXPECT_TRUE(status.texts.isEmpty());
    EXPECT_TRUE(http.calls.isEmpty());
}

} // namespace
