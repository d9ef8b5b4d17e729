#include "demo_host/day_weather.h"
#include "demo_host/demo_options.h"
#include "demo_host/json_replies.h"
#include "demo_host/text_replies.h"
#include "demo_host/zone_rows.h"

#include <httplib.h>

#include <csignal>
#include <iostream>
#include <thread>

namespace {

constexpr int kBadUsage = 2;

/// How to find the station that an address names, and how to make a reply of it and the moment.
using Find = const Station *(*)(QStringView name);
using Reply = QString (*)(const Station &station, const QDateTime &utc);

/// The host's clock.
class DemoClock
{
public:
    explicit DemoClock(std::optional<QDateTime> fixed) : m_fixed(std::move(fixed)) {}
    [[nodiscard]] QDateTime Now() const
    {
        return m_fixed.value_or(QDateTime::currentDateTimeUtc());
    }

private:
    std::optional<QDateTime> m_fixed;
};

/// Serves `reply` for every address that matches `pattern`, whose first group names the station.
void Serve(httplib::Server &server, const std::string &pattern, const std::string &type,
           const DemoClock &clock, Find find, Reply reply)
{
    server.Get(pattern, [=, &clock](const httplib::Request &request, httplib::Response &response) {
        const Station *station = find(QString::fromStdString(request.matches[1].str()));
        if (station == nullptr)
            response.status = 404;
        else
            response.set_content(reply(*station, clock.Now()).toStdString(), type);
    });
}

void ServePositions(httplib::Server &server, const DemoClock &clock)
{
    server.Get("/v1/forecast", [&](const httplib::Request &request, httplib::Response &response) {
        AddressQuery query;
        for (const auto &[name, value] : request.params)
            query.insert(QString::fromStdString(name), QString::fromStdString(value));
        const auto reply = PositionReply(query, clock.Now());
        if (reply) {
            response.set_content(reply->toStdString(), "application/json");
        } else {
            response.status = 400;
            response.set_content(R"({"error":true,"reason":"no such position or quantity"})",
                                 "application/json");
        }
    });
}

/// Serves the folders of forecast zones, and the files in them.
void ServeZones(httplib::Server &server, const DemoClock &clock)
{
    server.Get("/data/forecasts/zone/([^/]+)/([^/]*)", [&](const httplib::Request &request,
                                                           httplib::Response &response) {
        const ForecastState *state =
            FindForecastState(QString::fromStdString(request.matches[1].str()));
        const QString fileName = QString::fromStdString(request.matches[2].str());
        if (state != nullptr && fileName.isEmpty()) {
            response.set_content(ZoneListingPage(*state, clock.Now()).toStdString(), "text/html");
            return;
        }
        const auto file = state == nullptr ? std::nullopt : ZoneFile(*state, fileName, clock.Now());
        if (file)
            response.set_content(file->toStdString(), "text/plain");
        else
            response.status = 404;
    });
}

void ServeAll(httplib::Server &server, const DemoClock &clock)
{
    Serve(server, R"(/data/observations/metar/decoded/([^/]+)\.TXT)", "text/plain", clock,
          FindStation, DecodedReport);
    Serve(server, R"(/xml/current_obs/([^/]+)\.xml)", "application/xml", clock, FindStation,
          CurrentObservation);
    Serve(server, "/stations/([^/]+)/observations/latest", "application/geo+json", clock,
          FindStation, ObservationJson);
    ServePositions(server, clock);
    ServeZones(server, clock);
    Serve(server, "/([^/]+)", "application/json", clock, FindPlace, PlaceReply);
    server.set_error_handler([](const httplib::Request &request, httplib::Response &response) {
        if (!response.body.empty())
            return; // the reply already says what is wrong
        const QString page = NotFoundPage(QString::fromStdString(request.path));
        response.set_content(page.toStdString(), "text/html");
    });
}

/// Listens on `port` of the loopback; 0: on a free one.
/// @return the port, or -1 if it is not available.
int Bind(httplib::Server &server, int port)
{
    const char *const loopback = "127.0.0.1";
    if (port == 0)
        return server.bind_to_any_port(loopback);
    return server.bind_to_port(loopback, port) ? port : -1;
}

/// Listens and serves until one of the signals arrives.
/// @return the exit code.
int Run(const DemoOptions &options, const sigset_t &endSignals)
{
    const DemoClock clock(options.time);
    httplib::Server server;
    server.set_keep_alive_timeout(1); // seconds; longest wait for idle connections at the end
    // The library's default would share the port with a second host.
    server.set_socket_options([](socket_t socket) {
        const int on = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    });
    ServeAll(server, clock);
    const int port = Bind(server, options.port);
    if (port < 0) {
        std::cerr << "TavrinDemoHost: cannot listen on port " << options.port << '\n';
        return 1;
    }
    std::thread listener([&server] { server.listen_after_bind(); });
    while (!server.is_running()) // it could not be stopped before that
        std::this_thread::yield();
    // Flushed at once, because scripts wait for the line.
    std::cout << "Listening on http://127.0.0.1:" << port << std::endl;

    int received = 0;
    sigwait(&endSignals, &received);
    server.stop();
    listener.join();
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QString problem;
    const auto options = ReadDemoOptions(arguments, problem);
    if (!options) {
        std::cerr << "TavrinDemoHost: " << problem.toStdString() << '\n';
        return kBadUsage;
    }
    if (options->help) {
        std::cout << DemoHelp().toStdString();
        return 0;
    }

    // Blocked before any thread starts, so that the signal waits for sigwait().
    sigset_t endSignals;
    sigemptyset(&endSignals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&endSignals, signal);
    pthread_sigmask(SIG_BLOCK, &endSignals, nullptr);

    return Run(*options, endSignals);
}
