#pragma once

#include "gui/zone_finder.h"

#include <algorithm>

/// A zone finder while it retrieves, with transfers that the test ends.
class ZoneRetrieval final : public ZoneFinder
{
public:
    inline static const QString kList = "https://host/data/forecasts/zone/md/";
    inline static const QStringList kCancelAlone{"btnCancel"};
    inline static const QStringList kAllButSelect{
        "lstZoneCodes", "cboState", "btnNOAAZonesGetList", "txtSearch", "btnSearch", "btnCancel"};

    explicit ZoneRetrieval(FakeTransfers &http) : ZoneFinder(http), m_http(http) { Open(); }

    /// The transfer that is on its way to `url`.
    [[nodiscard]] TransferHandle HandleOf(const QString &url) const
    {
        const auto found = std::find_if(m_http.open.begin(), m_http.open.end(),
                                        [&](const auto &open) { return open.second.url == url; });
        if (found == m_http.open.end())
            qFatal("nobody asked for %s", qUtf8Printable(url));
        return found->first;
    }
    [[nodiscard]] TransferHandle HandleOfFile(const QString &name) const
    {
        return HandleOf(kList + name);
    }

    void Poll() const { dialog->tmrRetrieval_Timer(); }
    void FinishList(const QString &listing) { m_http.Finish(HandleOf(kList), listing); }
    void FinishFile(const QString &name, const QString &place)
    {
        m_http.Finish(HandleOfFile(name), ZoneFile(name.first(6).toUpper(), place));
    }

    /// Starts and lets the list of these files arrive, so that the first is requested.
    void StartWith(const QList<int> &numbers)
    {
        Click("btnNOAAZonesGetList");
        FinishList(ZoneListing(numbers));
        Poll();
        Poll();
    }

private:
    FakeTransfers &m_http;
};
