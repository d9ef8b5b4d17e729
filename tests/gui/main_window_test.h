#pragma once

#include "gui/main_window.h"
#include "support/one_place.h"

#include <QTest>

#include <memory>

/// Base of the tests that begin with a service set up and its place entered.
class OnePlaceTest : public QObject
{
protected:
    void Begin()
    {
        m = std::make_unique<MainWindow>();
        m->Write("TavrinWeatherProfiles.ini", kOnePlaceProfile);
        QVERIFY(!m->Start());
        m->Type("txtLocation1", "Salem");
    }

    std::unique_ptr<MainWindow> m;
};

/// Base of the tests that begin before the start, on a desktop with a panel.
class PanelTest : public QObject
{
protected:
    void Begin()
    {
        m = std::make_unique<MainWindow>();
        m->panelIcon.isPanelThere = true;
    }

    std::unique_ptr<MainWindow> m;
};
