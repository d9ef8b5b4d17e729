#include "service/service.h"

#include "service/setup.h"

#include <utility>

namespace {

constexpr int kSecondsToNextLook = 60;

} // namespace

std::optional<QString> BringUp(Station &station)
{
    station.LoadProfiles();
    if (auto problem = station.LoadSettings())
        return problem;
    station.ShowWeatherProfile();
    return std::nullopt;
}

Service::Service(Station &station, Say say)
    : m_station(station)
    , m_say(std::move(say))
    , m_reporter(m_say)
{
    m_station.SetView(this);
}

Service::~Service()
{
    m_station.SetView(nullptr);
}

void Service::Start()
{
    m_station.LoadExtremes();
    m_station.Start();
    LookForMissing();
}

void Service::TickSecond()
{
    if (m_isMissing && --m_secondsToLook == 0)
        ReadFiles();
    m_station.TickSecond();
}

void Service::Reload()
{
    m_problem.clear();
    m_reporter.Repeat();
    ReadFiles();
}

void Service::ReadFiles()
{
    const QString problem = m_station.Reload().value_or(QString());
    if (!problem.isEmpty() && problem != m_problem)
        m_say(problem);
    m_problem = problem;
    LookForMissing();
}

void Service::LookForMissing()
{
    m_isMissing = !m_problem.isEmpty();
    for (const Product product : {Product::Weather, Product::Forecast}) {
        const Setup setup = SetupOf(product, m_station);
        m_isMissing = m_isMissing || !setup.IsComplete();
        m_reporter.Missing(product, setup.missing);
    }
    m_secondsToLook = kSecondsToNextLook;
}
