#include "service/reporter.h"

#include "service/setup.h"

#include <utility>

using namespace Qt::StringLiterals;

void Reporter::Missing(Product product, const QString &what)
{
    State &state = m_states[std::size_t(product)];
    if (state.missing == what)
        return;
    state.missing = what;
    if (what.isEmpty())
        return; // whether it works remains to be seen
    state.isSaid = true;
    m_say(u"the %1 is not set up: %2"_s.arg(NameOf(product), what));
}

void Reporter::Repeat()
{
    for (State &state : m_states)
        state.missing.clear();
}

void Reporter::Ended(const ProductEnd &end)
{
    State &state = m_states[std::size_t(end.product)];
    const bool isFailed = !end.failure.isEmpty();
    if (!state.missing.isEmpty() || isFailed == state.isSaid)
        return;
    state.isSaid = isFailed;
    const QString name = NameOf(end.product);
    m_say(isFailed ? u"the %1 failed: %2"_s.arg(name, end.failure)
                   : u"the %1 works again"_s.arg(name));
}
