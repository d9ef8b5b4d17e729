#pragma once

#include "graph/day_temps.h"
#include "graph/graph_elements.h"
#include "graph/graph_plan.h"

#include <QWidget>

/// Shows a day of hourly temperatures. No form of the program uses it: it is a separate component
/// for other programs, its hosts.
///
/// It holds 25 temperatures, at first without readings, and the limits of the scale, and draws
/// what it holds whenever it is painted.
class WeatherGraph final : public QWidget
{
    Q_OBJECT

public:
    explicit WeatherGraph(QWidget *parent = nullptr);

    /// Forgets all readings, then calls RedrawGraph(), whose exception passes through.
    void ResetTempArray();

    /// The upper and the lower end of the scale. Any value is accepted; see RedrawGraph().
    void MaxTemp(double temperature);
    void MinTemp(double temperature);

    /// Stores the reading of hour 0..23; any other hour is ignored. kNoReading removes a reading.
    void TempArray(double temperature, qint16 hour);

    /// Computes the range of the scale. It draws nothing: changes are painted automatically.
    /// @throws std::overflow_error if the range is not finite; such a scale is not drawn.
    void RedrawGraph() const;

    /// Replaces "Date" above the graph.
    void SetDate(const QString &caption);

    [[nodiscard]] const GraphElements &Elements() const { return m_elements; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void ShowChange();

    DayTemps m_day;
    GraphElements m_elements;
};
