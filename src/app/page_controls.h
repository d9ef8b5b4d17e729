#pragma once

#include "profiles/weather_profile.h"

#include <QRect>

#include <array>

class ElidedLabel;
class ProfileList;
class QCheckBox;
class QFrame;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QWidget;
class LongTextBox;
class TabButton;
class ValueBox;

/// One of the boxes that show a value of the current weather.
struct ValueBoxField
{
    QStringView name = {};
    QStringView caption = {};
    QString WeatherValues::*value = nullptr;
};

/// The sixteen boxes in the order of the page: the first four have a line of their own, the others
/// stand in pairs.
inline constexpr std::array<ValueBoxField, 16> kValueBoxFields{{
    {u"txtLocation", u"Location:", &WeatherValues::locationValue},
    {u"txtTime", u"Time:", &WeatherValues::timeValue},
    {u"txtCurrentConditions", u"Conditions:", &WeatherValues::conditionsValue},
    {u"txtWindSpeedDir", u"Wind:", &WeatherValues::windSpeedDirValue},
    {u"txtCurrentTemp", u"Temperature:", &WeatherValues::temperatureValue},
    {u"txtHumidity", u"Humidity:", &WeatherValues::humidityValue},
    {u"txtDewPoint", u"Dew Point:", &WeatherValues::dewPointValue},
    {u"txtAtmosPress", u"Pressure:", &WeatherValues::atmosPressValue},
    {u"txtWindChill", u"Wind Chill:", &WeatherValues::windchillValue},
    {u"txtHeatIndex", u"Heat Index:", &WeatherValues::heatindexValue},
    {u"txtVisibility", u"Visibility:", &WeatherValues::visibilityValue},
    {u"txtPrevPrecip", u"Precipitation:", &WeatherValues::precipValue},
    {u"txtSunrise", u"Sunrise:", &WeatherValues::sunriseValue},
    {u"txtSunset", u"Sunset:", &WeatherValues::sunsetValue},
    {u"txtPrevMinTemp", u"Previous Min:", &WeatherValues::minTempValue},
    {u"txtPrevMaxTemp", u"Previous Max:", &WeatherValues::maxTempValue},
}};

/// The controls of the main window. All of them belong to the window.
///
/// The outer frames have their fixed places, what is inside them is laid out by the toolkit, so
/// that it follows the font.
struct PageControls
{
    void Build(QWidget *window);

    // The tabs and what all pages share.
    QLineEdit *txtFocus = nullptr; ///< Takes the focus from buttons; kept empty, out of sight.
    std::array<TabButton *, 3> cmdPage{};
    std::array<QGroupBox *, 3> frmPage{};
    QFrame *linPages = nullptr; ///< Separates the tabs from the pages.

    // "Current Weather"
    std::array<ValueBox *, 16> valueBoxes{}; ///< In the order of kValueBoxFields.
    ElidedLabel *lblDisclaimer1 = nullptr;
    ElidedLabel *lblWeatherCopyright = nullptr;
    ElidedLabel *lblStatus = nullptr;
    ElidedLabel *lblNextWeatherCheck = nullptr;
    QPushButton *btnGetWeather = nullptr;
    QPushButton *btnWeatherSettings = nullptr;
    QPushButton *btnShowRaw = nullptr;

    // Its frame with the profile's settings, and the frame with the reply as received.
    QGroupBox *frmWeatherSettings = nullptr;
    ProfileList *cboSelectedProfile = nullptr;
    std::array<QFrame *, 4> frmLoc{};
    std::array<ElidedLabel *, 4> lblLocationTitle{};
    std::array<QLineEdit *, 4> txtLocation{};
    QLabel *lblProfileDescription = nullptr;
    QPlainTextEdit *txtProfileDescription = nullptr;
    QGroupBox *frmWeatherRaw = nullptr;
    LongTextBox *txtWeatherInfo = nullptr;
    std::array<QPushButton *, 2> btnWeatherDone{};

    // "Forecast"
    QLineEdit *txtZoneCode = nullptr;
    QLineEdit *txtStateCode = nullptr;
    QPushButton *btnSelectNOAAZone = nullptr;
    QPushButton *btnGetForecast = nullptr;
    LongTextBox *txtForecast = nullptr;
    ElidedLabel *lblNextForecastCheck = nullptr;
    ElidedLabel *lblDisclaimer2 = nullptr;
    ElidedLabel *lblForecastCopyright = nullptr;

    // "Program Settings"
    QLineEdit *txtHTTPPort = nullptr;
    std::array<QCheckBox *, 4> chkForecastTime{};
    std::array<QRadioButton *, 4> optCheckInterval{};
    QCheckBox *chkMinimizeOnStartup = nullptr;
    QLabel *lblFolderProblem = nullptr; ///< Hidden while the program's folder can be written.
    QLabel *lblAppVersion = nullptr;

private:
    void BuildTabs(QWidget *window);
    void BuildWeatherPage(QGroupBox *page);
    void BuildValueBoxes(QGroupBox *page, QGridLayout *rows);
    void BuildWeatherSettings(QGroupBox *page);
    void BuildLocations(QGroupBox *frame);
    void BuildRawFrame(QWidget *window);
    void BuildForecastPage(QGroupBox *page);
    void BuildSettingsPage(QGroupBox *page);
    QGroupBox *BuildForecastTimes(QGroupBox *page);
    QGroupBox *BuildCheckIntervals(QGroupBox *page);
};

/// Where the tab of page `index` stands, raised when it is the current page's.
[[nodiscard]] QRect TabGeometry(int index, bool raised);

/// Puts the profile's description below `lastFrame`, the last location frame that is shown.
void PlaceDescription(const PageControls &controls, const QFrame &lastFrame);
