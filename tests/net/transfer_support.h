#pragma once

#include "net/curl_transfers.h"
#include "support/loopback_server.h"
#include "support/qt_printers.h"
#include "support/wait_until.h"

#include <gtest/gtest.h>

#include <string>

/// How a transfer ended, as its owner sees it.
struct Outcome
{
    bool ended = false;
    int result = -1; ///< Of Net_HTTPThreadReturnText().
    QString text = QStringLiteral("untouched");
    QString error = {};
};

/// Takes one transfer through its whole life: open, get, done, text, close.
inline Outcome GetFrom(HttpTransfers &transfers, const std::string &url)
{
    Outcome outcome;
    const TransferHandle handle = transfers.Net_HTTPThreadOpen(QStringLiteral("80"));
    transfers.Net_HTTPThreadGet(handle, QString::fromStdString(url));
    outcome.ended = WaitUntil([&] { return transfers.Net_HTTPThreadIsDone(handle); });
    outcome.result = transfers.Net_HTTPThreadReturnText(handle, outcome.text);
    outcome.error = transfers.ErrorText(handle);
    transfers.Net_HTTPThreadClose(handle);
    return outcome;
}

inline Outcome Get(const std::string &url, const TransferOptions &options = {})
{
    CurlTransfers transfers(options);
    return GetFrom(transfers, url);
}

/// One request to a server that answers with `script`.
inline Outcome GetScripted(const LoopbackServer::Script &script,
                           const TransferOptions &options = {})
{
    const LoopbackServer server(script);
    return Get(server.Url(), options);
}

inline void ExpectReceived(const Outcome &outcome, QStringView text)
{
    EXPECT_TRUE(outcome.ended);
    EXPECT_EQ(outcome.result, 1) << outcome.error.toStdString();
    EXPECT_EQ(outcome.text, text);
    EXPECT_EQ(outcome.error, QString());
}

inline void ExpectFailed(const Outcome &outcome)
{
    EXPECT_TRUE(outcome.ended);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.text, QString()) << "a failed transfer delivers no text";
    EXPECT_NE(outcome.error, QString());
}

inline void ExpectFailed(const Outcome &outcome, const QString &error)
{
    ExpectFailed(outcome);
    EXPECT_EQ(outcome.error, error);
}
