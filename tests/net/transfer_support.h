#pragma once

#include "net/curl_transfers.h"
#include "support/loopback_server.h"
#include "support/qt_printers.h"
#include "support/wait_until.h"

#include <gtest/gtest.h>

#include <string>

using Connection = LoopbackConnection;

// --- what servers do

inline void SayHello(Connection &connection, const std::string & /*head*/)
{
    connection.Reply("hello");
}

inline void Hold(Connection &connection, const std::string & /*head*/)
{
    connection.Hold();
}

inline LoopbackServer::Script Replies(const std::string &body, const std::string &headers = {},
                                      const std::string &status = "200 OK")
{
    return [=](Connection &connection, const std::string &) {
        connection.Reply(body, headers, status);
    };
}

inline LoopbackServer::Script RedirectsTo(const std::string &location)
{
    return [=](Connection &connection, const std::string &) { connection.Redirect(location); };
}

inline LoopbackServer::Script SendsAndCloses(const std::string &bytes)
{
    return [=](Connection &connection, const std::string &) {
        connection.Send(bytes);
        connection.CloseAfterwards();
    };
}

// --- transfers

/// Opens a transfer and starts the GET of `url`.
inline TransferHandle Start(HttpTransfers &transfers, const std::string &url)
{
    const TransferHandle handle = transfers.Net_HTTPThreadOpen(QStringLiteral("80"));
    EXPECT_TRUE(transfers.Net_HTTPThreadGet(handle, QString::fromStdString(url)));
    return handle;
}

[[nodiscard]] inline bool WaitForEnd(const HttpTransfers &transfers, TransferHandle handle)
{
    return WaitUntil([&] { return transfers.Net_HTTPThreadIsDone(handle); });
}

/// How a transfer ended, as its owner sees it.
struct Outcome
{
    bool ended = false;
    int result = -1; ///< Of Net_HTTPThreadReturnText().
    QString text = QStringLiteral("untouched");
    QString error = {};
    Reply reply = {};
};

/// Takes one transfer through its whole life: open, get, done, text, close.
inline Outcome GetFrom(HttpTransfers &transfers, const std::string &url)
{
    Outcome outcome;
    const TransferHandle handle = Start(transfers, url);
    outcome.ended = WaitForEnd(transfers, handle);
    outcome.result = transfers.Net_HTTPThreadReturnText(handle, outcome.text);
    outcome.reply = transfers.Net_HTTPThreadReply(handle);
    outcome.error = outcome.reply.errorText;
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
    EXPECT_EQ(outcome.reply.text, text);
    EXPECT_EQ(outcome.reply.error, 0);
    EXPECT_EQ(outcome.error, QString());
}

inline void ExpectFailed(const Outcome &outcome)
{
    EXPECT_TRUE(outcome.ended);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.text, QString()) << "a failed transfer delivers no text";
    EXPECT_EQ(outcome.reply.text, QString());
    EXPECT_GT(outcome.reply.error, 0);
    EXPECT_NE(outcome.error, QString());
}

inline void ExpectFailed(const Outcome &outcome, const QString &error)
{
    ExpectFailed(outcome);
    EXPECT_EQ(outcome.error, error);
}
