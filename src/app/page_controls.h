#pragma once

#include "app/value_box_fields.h"

#include <QRect>

#include <array>

class CoveringFrame;
class ElidedLabel;
class ProfileList;
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
class LongTextBox;
class TabButton;
class ValueBox;

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
    CoveringFrame *frmWeatherSettings = nullptr;
    ProfileList *cboSelectedProfile = nullptr;
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

/// Where the tab of page `index` stands, raised when it is the current page's.
[[nodiscard]] QRect TabGeometry(int index, bool raised);

/// Puts the profile's description below the last location frame that is shown.
void PlaceDescription(const PageControls &controls);
