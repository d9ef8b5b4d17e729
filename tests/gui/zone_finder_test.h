#pragma once

#include "gui/zone_finder.h"
#include "gui/zone_retrieval.h"

#include <QTest>

#include <memory>

/// Base of the tests that begin with a finished list.
class ZoneFinderTest : public QObject
{
protected:
    inline static const QStringList kZones{
        "MDZ001:  Garrett", "MDZ006:  Northern Baltimore",
        "MDZ011:  Southern Baltimore, Including the cities of Towson",
        "MDZ013:  Prince Georges, Including the city of Bowie",
        "MDZ014:  Anne Arundel, Including the city of Towson Mill"};

    void Begin()
    {
        m = std::make_unique<ZoneFinder>(m_http);
        m->Open();
        m->Fill(kZones);
    }

    [[nodiscard]] QListWidget *List() const { return m->Find<QListWidget>("lstZoneCodes"); }
    void ClickEntry(int entry) const
    {
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {},
                          List()->visualItemRect(List()->item(entry)).center());
    }

    FakeTransfers m_http;
    std::unique_ptr<ZoneFinder> m;
};

/// Base of the tests that end their transfers themselves.
class ZoneRetrievalTest : public QObject
{
protected:
    void Begin()
    {
        m_http.refuseOpen = false;
        m_http.calls.clear();
        m = std::make_unique<ZoneRetrieval>(m_http);
    }

    void Finish()
    {
        m.reset();
        QVERIFY(m_http.open.empty()); // nothing is left on its way, however it ended
    }

    FakeTransfers m_http;
    std::unique_ptr<ZoneRetrieval> m;
};
