#include "service/one_round.h"

#include "service/setup.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

OneRound::OneRound(Station &station, Say say) : m_station(station), m_say(std::move(say))
{
    m_station.SetView(this);
}

OneRound::~OneRound()
{
    m_station.SetView(nullptr);
}

void OneRound::Start()
{
    const bool isAnything = IsAnythingSetUp(m_station);
    for (const Product product : {Product::Weather, Product::Forecast}) {
        const Setup setup = SetupOf(product, m_station);
        m_parts[std::size_t(product)].isWanted = setup.IsComplete();
        if (!isAnything)
            m_say(u"the %1 is not set up: %2"_s.arg(NameOf(product), setup.missing));
    }
    if (!isAnything)
        return;
    m_station.LoadExtremes();
    m_station.Start();
    if (m_parts[std::size_t(Product::Weather)].isWanted)
        m_station.RequestWeather();
    if (m_parts[std::size_t(Product::Forecast)].isWanted)
        m_station.RequestForecast();
}

void OneRound::Ended(const ProductEnd &end)
{
    Part &part = m_parts[std::size_t(end.product)];
    if (!end.failure.isEmpty() && !part.hasEnded)
        m_say(u"the %1 failed: %2"_s.arg(NameOf(end.product), end.failure));
    part.hasEnded = true;
    part.isStored = part.isStored || end.failure.isEmpty();
}

bool OneRound::IsDone() const
{
    return std::ranges::all_of(m_parts,
                               [](const Part &part) { return !part.isWanted || part.hasEnded; });
}

ExitCode OneRound::Result() const
{
    const auto wanted = std::ranges::count_if(m_parts, &Part::isWanted);
    const auto stored = std::ranges::count_if(m_parts, &Part::isStored);
    if (wanted == 0)
        return ExitCode::NothingSetUp;
    if (stored == 0)
        return ExitCode::NoneStored;
    return stored < wanted ? ExitCode::SomeStored : ExitCode::Done;
}
