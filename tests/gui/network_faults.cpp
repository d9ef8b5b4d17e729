#include "gui/network_faults.h"

#include "support/gzip.h"

#include <QStringConverter>

#include <array>
#include <charconv>

using namespace std::chrono_literals;

namespace {

using Connection = LoopbackConnection;
using Request = FaultyRequest;
using Fault = FaultHost::Fault;

constexpr size_t kLargestBody = 16777216; // 16 MiB
constexpr auto kShortWait = 300ms;        // instead of the program's 10, 20 or 60 seconds

const std::string kTooLarge = "Maximum file size exceeded";

// --- What hosts do.

void SaysNothing(Connection &connection, const Request & /*request*/)
{
    connection.Hold();
}

void StopsInTheHead(Connection &connection, const Request & /*request*/)
{
    connection.Send("HTTP/1.1 200 OK\r\nContent-Len");
    connection.Hold();
}

void ClosesInTheHead(Connection &connection, const Request & /*request*/)
{
    connection.Send("HTTP/1.1 200 OK\r\nContent-Len");
    connection.CloseAfterwards();
}

std::string HeadFor(size_t length)
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(length) + "\r\n\r\n";
}

std::string HalfOf(const std::string &body)
{
    return body.substr(0, body.size() / 2);
}

void StopsInTheBody(Connection &connection, const Request &request)
{
    connection.Send(HeadFor(request.body.size()) + HalfOf(request.body));
    connection.Hold();
}

void ClosesInTheBody(Connection &connection, const Request &request)
{
    connection.Send(HeadFor(request.body.size()) + HalfOf(request.body));
    connection.CloseAfterwards();
}

/// One byte per second of test time.
void Drips(Connection &connection, const Request & /*request*/)
{
    constexpr int kSecond = 20; // milliseconds
    connection.Send("HTTP/1.1 200 OK\r\n\r\n");
    while (connection.IsOpen()) {
        connection.Pause(kSecond);
        connection.Send("x");
    }
}

void Resets(Connection &connection, const Request & /*request*/)
{
    connection.Reset();
}

void ResetsInTheBody(Connection &connection, const Request &request)
{
    connection.Send(HeadFor(request.body.size()) + HalfOf(request.body));
    connection.Reset();
}

void SendsMoreThanSaid(Connection &connection, const Request &request)
{
    connection.Send(HeadFor(request.body.size()) + request.body + "<now><temp>-99</temp></now>");
    connection.CloseAfterwards();
}

std::string Chunk(const std::string &bytes)
{
    std::array<char, 20> size = {};
    const auto [end, problem] =
        std::to_chars(size.data(), size.data() + size.size(), bytes.size(), 16);
    return std::string(size.data(), end) + "\r\n" + bytes + "\r\n";
}

Fault SendsChunks(const std::string &end)
{
    return [end](Connection &connection, const Request &request) {
        connection.Send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
        connection.Send(Chunk(request.body.substr(0, 7)) + Chunk(request.body.substr(7)) + end);
        connection.CloseAfterwards();
    };
}

/// A complete reply with that status and page.
Fault Replies(const std::string &status, const std::string &page = {},
              const std::string &headers = {})
{
    return [=](Connection &connection, const Request & /*request*/) {
        connection.Reply(page, headers, status);
    };
}

/// The right answer with that status.
Fault RepliesRight(const std::string &status)
{
    return [status](Connection &connection, const Request &request) {
        connection.Reply(request.body, {}, status);
    };
}

/// The first half of the right answer, as if a range had been asked for.
void RepliesAPart(Connection &connection, const Request &request)
{
    const std::string half = HalfOf(request.body);
    connection.Reply(half,
                     "Content-Range: bytes 0-" + std::to_string(half.size() - 1) + "/"
                         + std::to_string(request.body.size()) + "\r\n",
                     "206 Partial Content");
}

void HasNoContent(Connection &connection, const Request & /*request*/)
{
    connection.Send("HTTP/1.1 204 No Content\r\n\r\n");
}

Fault RedirectsTo(const std::string &location)
{
    return [location](Connection &connection, const Request & /*request*/) {
        connection.Reply("moved", "Location: " + location + "\r\n", "302 Found");
    };
}

void RedirectsToItself(Connection &connection, const Request &request)
{
    connection.Redirect(request.path);
}

void RedirectsToHttps(Connection &connection, const Request &request)
{
    connection.Redirect(request.secure + request.path + "moved");
}

void RedirectsToHttp(Connection &connection, const Request &request)
{
    // The host gets no other request this way, so a kept connection would stay open.
    connection.Reply("moved",
                     "Connection: close\r\nLocation: " + request.plain + request.path + "moved\r\n",
                     "301 Moved Permanently");
    connection.CloseAfterwards();
}

void Zips(Connection &connection, const Request &request)
{
    connection.Reply(Gzip(request.body), "Content-Encoding: gzip\r\n");
}

void ZipsWithABrokenChecksum(Connection &connection, const Request &request)
{
    std::string packed = Gzip(request.body);
    packed[packed.size() - 5] ^= 1;
    connection.Reply(packed, "Content-Encoding: gzip\r\n");
}

void ZipsAHalf(Connection &connection, const Request &request)
{
    connection.Reply(HalfOf(Gzip(request.body)), "Content-Encoding: gzip\r\n");
}

Fault SendsABomb()
{
    return [bomb = Gzip(std::string(4 * kLargestBody, ' '))](Connection &connection,
                                                             const Request & /*request*/) {
        connection.Reply(bomb, "Content-Encoding: gzip\r\n");
    };
}

/// The right answer, padded to that length with spaces. It comes in chunks, because a length known
/// beforehand takes less memory.
Fault FillsUpTo(size_t size)
{
    return [size](Connection &connection, const Request &request) {
        constexpr size_t kPiece = 65536;
        connection.Send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
                        + Chunk(request.body));
        size_t left = size - request.body.size();
        for (; left > kPiece; left -= kPiece)
            connection.Send(Chunk(std::string(kPiece, ' ')));
        connection.Send(Chunk(std::string(left, ' ')) + "0\r\n\r\n");
    };
}

void SendsAHeadOfAMegabyte(Connection &connection, const Request &request)
{
    constexpr size_t kMegabyte = 1048576;
    constexpr size_t kLine = 1024;
    std::string head = "HTTP/1.1 200 OK\r\n";
    while (head.size() < kMegabyte)
        head += "X-Filler: " + std::string(kLine, 'x') + "\r\n";
    connection.Send(head + "Content-Length: " + std::to_string(request.body.size()) + "\r\n\r\n"
                    + request.body);
}

void PutsANulIn(Connection &connection, const Request &request)
{
    std::string body = request.body;
    const size_t place = body.find("nny"); // "Sunny" and "Funny" become "Su\0nny" and "Fu\0nny"
    if (place != std::string::npos)
        body.insert(place, 1, '\0');
    connection.Reply(body);
}

// --- Encodings. The right answers are ASCII but for the e with an acute accent in "Montreal".

std::string Latin1(const std::string &utf8)
{
    return QString::fromStdString(utf8).toLatin1().toStdString();
}

std::string Utf16(const std::string &utf8, QStringConverter::Encoding order)
{
    return QByteArray(QStringEncoder(order).encode(QString::fromStdString(utf8))).toStdString();
}

/// The right answer in Latin-1 after `line`, which may declare the charset.
Fault SendsLatin1(const std::string &contentType, const std::string &line = {})
{
    return [=](Connection &connection, const Request &request) {
        connection.Reply(line + Latin1(request.body), "Content-Type: " + contentType + "\r\n");
    };
}

Fault SendsUtf8(const std::string &contentType, const std::string &line = {})
{
    return [=](Connection &connection, const Request &request) {
        connection.Reply(line + request.body, "Content-Type: " + contentType + "\r\n");
    };
}

Fault SendsUtf16(QStringConverter::Encoding order, const std::string &contentType,
                 const std::string &mark = {})
{
    return [=](Connection &connection, const Request &request) {
        connection.Reply(mark + Utf16(request.body, order),
                         "Content-Type: " + contentType + "\r\n");
    };
}

// --- The rows.

std::vector<NetworkFault> FaultsOfTheWay()
{
    const TransferOptions connect{.connectTimeout = kShortWait};
    const TransferOptions idle{.idleTimeout = kShortWait};
    const TransferOptions whole{.totalTimeout = kShortWait};
    return {
        {.name = "refused", .outcome = Outcome::Fails, .number = 7, .way = Way::Refused},
        {.name = "no route", .outcome = Outcome::Fails, .number = 7, .way = Way::NoRoute},
        {.name = "name not found", .outcome = Outcome::Fails, .number = 6, .way = Way::NoName},
        {.name = "silent name server",
         .outcome = Outcome::Fails,
         .number = 28,
         .way = Way::NoName,
         .limits = connect,
         .silentNames = true},
        {.name = "accepts and says nothing",
         .act = SaysNothing,
         .outcome = Outcome::Fails,
         .number = 28,
         .reason = "No data received for 300 milliseconds",
         .limits = idle},
        {.name = "stops in the head",
         .act = StopsInTheHead,
         .outcome = Outcome::Fails,
         .number = 28,
         .reason = "No data received for 300 milliseconds",
         .limits = idle},
        {.name = "stops in the body",
         .act = StopsInTheBody,
         .outcome = Outcome::Fails,
         .number = 28,
         .reason = "No data received for 300 milliseconds",
         .limits = idle},
        {.name = "one byte a second",
         .act = Drips,
         .outcome = Outcome::Fails,
         .number = 28,
         .limits = whole},
        {.name = "closes in the head",
         .act = ClosesInTheHead,
         .outcome = Outcome::Fails,
         .number = 52},
        {.name = "reset", .act = Resets, .outcome = Outcome::Fails, .number = 56},
        {.name = "reset in the body",
         .act = ResetsInTheBody,
         .outcome = Outcome::Fails,
         .number = 56},
        {.name = "expired certificate",
         .outcome = Outcome::Fails,
         .number = 60,
         .way = Way::Expired},
        {.name = "self-signed certificate",
         .outcome = Outcome::Fails,
         .number = 60,
         .way = Way::SelfSigned},
        {.name = "certificate of another name",
         .outcome = Outcome::Fails,
         .number = 60,
         .way = Way::OtherName},
        {.name = "valid certificate", .outcome = Outcome::Good, .way = Way::Secure},
    };
}

std::vector<NetworkFault> FaultsOfTheLength()
{
    return {
        {.name = "shorter than said",
         .act = ClosesInTheBody,
         .outcome = Outcome::Fails,
         .number = 18},
        {.name = "longer than said", .act = SendsMoreThanSaid, .outcome = Outcome::Good},
        {.name = "chunks", .act = SendsChunks("0\r\n\r\n"), .outcome = Outcome::Good},
        {.name = "chunks that break off",
         .act = SendsChunks(""),
         .outcome = Outcome::Fails,
         .number = 18},
        {.name = "chunk of a size that is none",
         .act = SendsChunks("zz\r\n"),
         .outcome = Outcome::Fails,
         .number = 56},
        {.name = "empty", .act = Replies("200 OK"), .outcome = Outcome::Empty},
        {.name = "204", .act = HasNoContent, .outcome = Outcome::Empty},
        {.name = "gzip", .act = Zips, .outcome = Outcome::Good},
        {.name = "gzip with a wrong checksum",
         .act = ZipsWithABrokenChecksum,
         .outcome = Outcome::Fails,
         .number = 61},
        {.name = "half a gzip", .act = ZipsAHalf, .outcome = Outcome::Fails, .number = 61},
        {.name = "gzip bomb",
         .act = SendsABomb(),
         .outcome = Outcome::Fails,
         .number = 63,
         .reason = QString::fromStdString(kTooLarge)},
        {.name = "16 MiB", .act = FillsUpTo(kLargestBody), .outcome = Outcome::Good},
        {.name = "16 MiB and one byte",
         .act = FillsUpTo(kLargestBody + 1),
         .outcome = Outcome::Fails,
         .number = 63,
         .reason = QString::fromStdString(kTooLarge)},
        {.name = "head of 1 MiB",
         .act = SendsAHeadOfAMegabyte,
         .outcome = Outcome::Fails,
         .number = 63,
         .reason = QString::fromStdString(kTooLarge)},
    };
} // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): std::function frees it

NetworkFault Status(const char *name, int number, const std::string &line,
                    const std::string &headers = {})
{
    return {.name = name,
            .act = Replies(line, kForeignPage, headers),
            .outcome = Outcome::Fails,
            .number = number,
            .reason = QStringLiteral("HTTP %1").arg(number)};
} // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): std::function frees it

std::vector<NetworkFault> FaultsOfTheStatus()
{
    const QString refused = "Redirect to a refused address";
    return {
        {.name = "203 of a proxy",
         .act = RepliesRight("203 Non-Authoritative Information"),
         .outcome = Outcome::Good},
        {.name = "206 that nobody asked for",
         .act = RepliesAPart,
         .outcome = Outcome::Fails,
         .number = 206,
         .reason = "HTTP 206"},
        {.name = "226 that nobody asked for",
         .act = RepliesRight("226 IM Used"),
         .outcome = Outcome::Fails,
         .number = 226,
         .reason = "HTTP 226"},
        Status("401", 401, "401 Unauthorized", "WWW-Authenticate: Basic realm=\"x\"\r\n"),
        Status("403 with a page", 403, "403 Forbidden", "Content-Type: text/html\r\n"),
        Status("404", 404, "404 Not Found"),
        Status("429 to try later", 429, "429 Too Many Requests", "Retry-After: 1\r\n"),
        Status("500", 500, "500 Internal Server Error"),
        Status("503 to try later", 503, "503 Service Unavailable", "Retry-After: 1\r\n"),
        {.name = "301 loop", .act = RedirectsToItself, .outcome = Outcome::Fails, .number = 47},
        {.name = "302 to another scheme",
         .act = RedirectsTo("ftp://127.0.0.1/weather"),
         .outcome = Outcome::Fails,
         .number = 1,
         .reason = refused},
        {.name = "302 to a file",
         .act = RedirectsTo("file:///etc/hostname"),
         .outcome = Outcome::Fails,
         .number = 1,
         .reason = refused},
        {.name = "301 to https", .act = RedirectsToHttps, .outcome = Outcome::Good},
        {.name = "301 from https to http",
         .act = RedirectsToHttp,
         .outcome = Outcome::Fails,
         .number = 1,
         .reason = "Redirect from https to http refused",
         .way = Way::Secure},
        {.name = "a hotel's page",
         .act = Replies("200 OK", kForeignPage, "Content-Type: text/html\r\n"),
         .outcome = Outcome::Page},
    };
} // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): std::function frees it

std::vector<NetworkFault> FaultsOfTheText()
{
    using Order = QStringConverter::Encoding;
    const std::string mark8 = "\xEF\xBB\xBF\n"; // the line end keeps the first line after it whole
    return {
        {.name = "NUL bytes", .act = PutsANulIn, .outcome = Outcome::CutAtNul},
        {.name = "charset in the header", .act = SendsLatin1("text/plain; charset=ISO-8859-1")},
        {.name = "charset in the header wins",
         .act = SendsLatin1("text/html; charset=\"windows-1252\"", "<meta charset=\"utf-8\">\n")},
        {.name = "charset that nobody knows", .act = SendsUtf8("text/plain; charset=x-none")},
        {.name = "UTF-8 with a mark", .act = SendsUtf8("text/plain", mark8)},
        {.name = "UTF-16 in the header",
         .act = SendsUtf16(Order::Utf16BE, "text/plain; charset=utf-16be")},
        {.name = "UTF-16 little end first with a mark",
         .act = SendsUtf16(Order::Utf16LE, "text/plain", "\xFF\xFE")},
        {.name = "UTF-16 big end first with a mark",
         .act = SendsUtf16(Order::Utf16BE, "text/plain", "\xFE\xFF")},
        {.name = "XML declaration",
         .act = SendsLatin1("text/xml", "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\n")},
        {.name = "HTML meta tag", .act = SendsLatin1("text/html", "<meta charset=latin1>\n")},
        {.name = "UTF-8 that nobody declares", .act = SendsUtf8("text/plain")},
        {.name = "Latin-1 that nobody declares", .act = SendsLatin1("text/plain")},
    };
}

std::vector<NetworkFault> AllFaults()
{
    std::vector<NetworkFault> all;
    for (auto &&part :
         {FaultsOfTheWay(), FaultsOfTheLength(), FaultsOfTheStatus(), FaultsOfTheText()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace

const std::vector<NetworkFault> &NetworkFaults()
{
    static const std::vector<NetworkFault> faults = AllFaults();
    return faults;
}
