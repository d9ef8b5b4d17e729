#pragma once

#include "profiles/quantity.h"

#include <QRect>

#include <array>

class ChoiceList;
class CoveringFrame;
class ElidedLabel;
class LongTextBox;
class QCheckBox;
class QFrame;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;
class QWidget;
class TabButton;
class ValueBox;

/// The quantities of the value boxes in the order of the page: each of the first four has its own
/// line, of the others two share one.
inline constexpr std::array kBoxOrder{
    Quantity::Location,    Quantity::Time,      Quantity::Conditions, Quantity::WindSpeed,
    Quantity::Temperature, Quantity::Humidity,  Quantity::DewPoint,   Quantity::AtmosPress,
    Quantity::WindChill,   Quantity::HeatIndex, Quantity::Visibility, Quantity::Precip,
    Quantity::Sunrise,     Quantity::Sunset,    Quantity::MinTemp,    Quantity::MaxTemp};

static_assert(NamesEachOnce(kBoxOrder, [](const QuantityRow &row) { return !row.box.isEmpty(); }));

/// The controls of the main window, which owns all of them.
///
/// The outer frames have fixed places; the toolkit lays out what is in them, so that it follows the
/// font.
struct PageControls
{
    /// Makes all controls, in the order of the Tab key, with their texts at start-up. Call it once,
    /// before any of them is used.
    void Build(QWidget *window);

    // The tabs and what all pages share.
    QLineEdit *txtFocus = nullptr; ///< Takes the focus from buttons; kept empty, out of sight.
    std::array<TabButton *, 3> cmdPage{};
    std::array<QGroupBox *, 3> frmPage{};
    QFrame *linPages = nullptr; ///< Separates the tabs from the pages.

    // "Current Weather"
    std::array<ValueBox *, kBoxOrder.size()> valueBoxes{}; ///< In that order.
    ElidedLabel *lblDisclaimer1 = nullptr;
    ElidedLabel *lblWeatherCopyright = nullptr;
    ElidedLabel *lblStatus = nullptr;
    ElidedLabel *lblNextWeatherCheck = nullptr;
    QPushButton *btnGetWeather = nullptr;
    QPushButton *btnWeatherSettings = nullptr;
    QPushButton *btnShowRaw = nullptr;

    // Its frame with the profile's settings, and the frame with the reply as received.
    CoveringFrame *frmWeatherSettings = nullptr;
    ChoiceList *cboSelectedProfile = nullptr;
    std::array<QFrame *, 4> frmLoc{};
    std::array<ElidedLabel *, 4> lblLocationTitle{};
    std::array<QLineEdit *, 4> txtLocation{};
    QLabel *lblProfileDescription = nullptr;
    LongTextBox *txtProfileDescription = nullptr;
    CoveringFrame *frmWeatherRaw = nullptr;
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
    void BuildStatus(QGroupBox *page, QVBoxLayout *rows);
    void BuildWeatherSettings(QGroupBox *page);
    void BuildLocations(QGroupBox *frame, QVBoxLayout *rows);
    void BuildRawFrame(QWidget *window);
    void BuildForecastPage(QGroupBox *page);
    void BuildSettingsPage(QGroupBox *page);
    QGroupBox *BuildForecastTimes(QGroupBox *page);
    QGroupBox *BuildCheckIntervals(QGroupBox *page);
};

/// The place of the tab of page `index` in the window; the current page's tab is raised.
[[nodiscard]] QRect TabGeometry(int index, bool raised);

/// Moves the profile's description to just below the last location frame that is shown. Call it
/// after location frames have been shown or hidden; the window itself need not be shown.
void PlaceDescription(const PageControls &controls);
