#include "app/frm_main.h"
#include "controls/long_text_box.h"
#include "zones/frm_find_noaa_zones.h"

#include <QLineEdit>

// The page "Forecast".

void frmMain::StartForecastRequest()
{
    m_station.StartForecastRequest();
}

void frmMain::btnGetForecast_Click()
{
    m_station.RequestForecast();
    txtFocus->setFocus();
}

void frmMain::CheckForecastSchedule()
{
    m_station.CheckForecastSchedule();
}

void frmMain::ForecastChanged()
{
    txtForecast->SetText(m_station.Profiles().forecast.forecastText);
}

void frmMain::SaveForecastData()
{
    m_station.SaveForecastData();
}

void frmMain::ZoneCodes(const QString &text)
{
    if (m_zoneFinder != nullptr)
        m_zoneFinder->SetZonesTest(text);
}

void frmMain::btnSelectNOAAZone_Click()
{
    if (!m_memory.ZoneFinderOpen) { // m_zoneFinder may still be one that was just closed
        m_zoneFinder = new frmFindNOAAZones(
            m_platform.http, m_platform.clock, m_station.Profiles().forecast.host,
            m_memory.ZoneFinderOpen, m_memory.SelectedStateIndex, this);
        connect(m_zoneFinder, &frmFindNOAAZones::ZoneSelected, this, &frmMain::SetZone);
        m_zoneFinder->Form_Load();
    }
    m_zoneFinder->showNormal(); // also when it has been minimised
    m_zoneFinder->raise();
    m_zoneFinder->activateWindow();
}

void frmMain::PassZone()
{
    m_station.SetZone(txtStateCode->text(), txtZoneCode->text(), ZoneSource::Typed);
}

void frmMain::SetZone(const QString &zone, const QString &stateCode)
{
    m_station.SetZone(stateCode, zone, ZoneSource::Finder);
    // The station has the whole zone already, and neither box may pass on half of it.
    const QSignalBlocker silentZone(txtZoneCode);
    const QSignalBlocker silentState(txtStateCode);
    txtZoneCode->setText(zone);
    txtStateCode->setText(stateCode);
}

void frmMain::UnloadZoneFinder()
{
    if (!m_memory.ZoneFinderOpen || m_zoneFinder == nullptr)
        return;
    m_zoneFinder->Form_Unload();
    delete m_zoneFinder; // at once, with the transfers that it may still have
}
