#pragma once

#include "lib/pell_export.h"
#include "status/SatelliteImageLib.h"
#include "status/SatelliteInfoEx.h"
#include "status/SatelliteToolTip.h"

#include <QBasicTimer>
#include <QDateTime>
#include <QPixmap>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

namespace rxio {
class CAlmanacStorage;
} // namespace rxio

// The sky plot: the satellites at their azimuth and elevation with their icons and numbers, the
// elevation rings, the receiver's elevation mask in red, and on request each satellite's track
// from the almanac (the past pale). In prediction mode the satellites stand where the almanac
// puts them at the shown moment.
class PELL_EXPORT CSkyPlot final : public QWidget {
    Q_OBJECT
public:
    static constexpr int kRefreshPeriodMs = 5000;

    // A satellite drawn by the last paint: its pixel position and its index in the list given.
    struct Placed {
        QPointF position;
        int index;
    };

    explicit CSkyPlot(QWidget* parent = nullptr);

    // The satellites to show, in list order.
    void SetSatellites(std::vector<CSatelliteInfoEx> satellites);
    const std::vector<CSatelliteInfoEx>& Satellites() const { return m_satellites; }
    // The almanacs of the tracks and predictions (the receiver's store; it outlives the plot),
    // and the observer they are computed for; without either there are none.
    void SetAlmanacs(const rxio::CAlmanacStorage* almanacs);
    void SetObserver(const std::optional<vex::POS_GEO>& observer);
    // Degrees; below 0: none.
    void SetElevationMask(double maskDeg);
    double ElevationMask() const { return m_mask; }

    void SetShowTracks(bool show);
    bool ShowTracks() const { return m_showTracks; }
    // Off: the receiver's places at the present moment; on: the almanac's at the shown moment.
    // Switching it off brings the shown moment back to now.
    void SetPrediction(bool prediction);
    bool Prediction() const { return m_prediction; }
    // The shown moment in milliseconds from now.
    void SetPredictionOffset(qint64 offsetMs);
    qint64 PredictionOffset() const { return m_offsetMs; }
    // The moment shown: the clock's now plus the offset in prediction mode.
    QDateTime ShownMoment() const;
    // Where "now" comes from (the system clock unless replaced).
    void SetClock(std::function<QDateTime()> clock);

    // The plot's centre and radius in the widget's pixels.
    QPointF Centre() const;
    unsigned Radius() const;
    const std::vector<Placed>& PlacedSatellites() const { return m_placed; }
    CSatelliteImageLib& ImageLib() { return m_images; }
    const CSatelliteToolTip& ToolTip() const { return m_toolTip; }
    // The satellite under `point`, as an index into Satellites(), or -1.
    int HitTest(QPointF point) const;

    // "Time:", a line break and the shown moment's offset from now as +HH:MM.
    static QString PredictionLabel(qint64 offsetMs);

signals:
    // Every kRefreshPeriodMs while the plot is on screen.
    void refreshDue();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    const QPixmap& Background();
    void DrawSatellites(QPainter& painter);
    void DrawTrack(QPainter& painter, const CSatelliteInfoEx& satellite, QPointF at,
                   double elevationDeg, const QDateTime& moment);
    int LabelMargin() const;
    void HideToolTip();

    std::vector<CSatelliteInfoEx> m_satellites;
    const rxio::CAlmanacStorage* m_almanacs = nullptr;
    std::optional<vex::POS_GEO> m_observer;
    double m_mask = -1.0;
    bool m_showTracks = false;
    bool m_prediction = false;
    qint64 m_offsetMs = 0;
    std::function<QDateTime()> m_clock;
    std::vector<Placed> m_placed;
    QPixmap m_background;
    CSatelliteImageLib m_images;
    CSatelliteToolTip m_toolTip;
    int m_toolTipIndex = -1;
    QBasicTimer m_refresh;
};
