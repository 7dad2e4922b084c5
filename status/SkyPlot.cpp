#include "status/SkyPlot.h"

#include "lib/Drawing.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"
#include "rxio/Almanac.h"
#include "status/SkyGeometry.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <numbers>

namespace {

using EConstellation = rxio::ISatListListener::SatelliteInfo::EConstellation;

int ScaleFactor() {
    return static_cast<int>(std::lround(pell::GetScaleFactor()));
}

constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;

QColor IconColor(EConstellation constellation, double factor) {
    return QColor::fromRgb(CSatelliteImageLib::GetIconColor(constellation, factor));
}

} // namespace

CSkyPlot::CSkyPlot(QWidget* parent)
    : QWidget(parent), m_clock([] { return QDateTime::currentDateTimeUtc(); }), m_toolTip(this) {
    // The plot repaints itself whole; nothing of its parent shows through.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setMinimumSize(160, 160);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CSkyPlot::SetSatellites(std::vector<CSatelliteInfoEx> satellites) {
    m_satellites = std::move(satellites);
    // An open tip follows its satellite's new report; one that has gone takes its tip along.
    if (m_toolTipIndex >= 0) {
        const std::uint8_t shown = m_toolTip.Usi();
        const auto found = std::find_if(m_satellites.begin(), m_satellites.end(),
                                        [shown](const auto& s) { return s.USI == shown; });
        if (found == m_satellites.end()) {
            HideToolTip();
        } else {
            m_toolTipIndex = static_cast<int>(found - m_satellites.begin());
            m_toolTip.SetSatellite(*found, m_images);
        }
    }
    update();
}

void CSkyPlot::SetAlmanacs(const rxio::CAlmanacStorage* almanacs) {
    m_almanacs = almanacs;
    update();
}

void CSkyPlot::SetObserver(const std::optional<vex::POS_GEO>& observer) {
    m_observer = observer;
}

void CSkyPlot::SetElevationMask(double maskDeg) {
    if (maskDeg == m_mask)
        return;
    m_mask = maskDeg;
    m_background = {};
    update();
}

void CSkyPlot::SetShowTracks(bool show) {
    if (show == m_showTracks)
        return;
    m_showTracks = show;
    update();
}

void CSkyPlot::SetPrediction(bool prediction) {
    if (prediction == m_prediction)
        return;
    m_prediction = prediction;
    if (!m_prediction)
        m_offsetMs = 0;
    HideToolTip();
    update();
}

void CSkyPlot::SetPredictionOffset(qint64 offsetMs) {
    if (offsetMs == m_offsetMs)
        return;
    m_offsetMs = offsetMs;
    update();
}

QDateTime CSkyPlot::ShownMoment() const {
    const QDateTime now = m_clock();
    return m_prediction ? now.addMSecs(m_offsetMs) : now;
}

void CSkyPlot::SetClock(std::function<QDateTime()> clock) {
    m_clock = std::move(clock);
    update();
}

int CSkyPlot::LabelMargin() const {
    // Room for a satellite on the horizon: half its icon and its number under it.
    return CSatelliteImageLib::GetImageSize().height() / 2 + fontMetrics().height() + 2;
}

QPointF CSkyPlot::Centre() const {
    // On a whole pixel, so that the diameters are crisp one-pixel lines.
    return QPointF(QPoint(width() / 2, height() / 2));
}

unsigned CSkyPlot::Radius() const {
    const int radius = std::min(width(), height()) / 2 - LabelMargin();
    return radius > 0 ? static_cast<unsigned>(radius) : 0U;
}

QString CSkyPlot::PredictionLabel(qint64 offsetMs) {
    const qint64 minutes = std::llabs(offsetMs) / 60000;
    return QString::asprintf(
        "%ls:\r\n%ls%02d:%02d", qUtf16Printable(g_PellLibApp.XLoadString(pell::ids::StatusTime)),
        offsetMs < 0 ? L"-" : L"+", static_cast<int>(minutes / 60), static_cast<int>(minutes % 60));
}

const QPixmap& CSkyPlot::Background() {
    const qreal ratio = devicePixelRatioF();
    if (!m_background.isNull() && m_background.size() == size() * ratio)
        return m_background;
    m_background = QPixmap(size() * ratio);
    m_background.setDevicePixelRatio(ratio);
    m_background.fill(palette().color(QPalette::Base));
    QPainter painter(&m_background);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font());
    const QPointF centre = Centre();
    const unsigned radius = Radius();
    const int r = static_cast<int>(radius);
    if (radius > 0) {
        painter.setPen(QPen(Qt::black, 1));
        painter.drawEllipse(centre, r, r);
    }
    // Ring labels a size smaller than the satellites' numbers, on a backing of their own so
    // that they stay legible where eight of them sit close together.
    QFont small = font();
    small.setPointSizeF(font().pointSizeF() * 0.85);
    painter.setFont(small);
    const QFontMetrics metrics(small);
    const QColor base = palette().color(QPalette::Base);
    for (const pell::sky::Ring& ring : pell::sky::Rings(radius, ScaleFactor())) {
        painter.setPen(QPen(QColor(128, 128, 128), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(centre, ring.radius, ring.radius);
    }
    for (const pell::sky::Ring& ring : pell::sky::Rings(radius, ScaleFactor())) {
        const QString label = QString::asprintf("%d°", ring.elevationDeg);
        const int width = metrics.horizontalAdvance(label) + 2;
        const QRectF box(centre.x() - ring.radius - width / 2.0, centre.y() + 1, width,
                         metrics.height());
        painter.fillRect(box, base);
        painter.setPen(QColor(96, 96, 96));
        painter.drawText(box, Qt::AlignCenter, label);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawLine(QPointF(centre.x() - r, centre.y()), QPointF(centre.x() + r, centre.y()));
    painter.drawLine(QPointF(centre.x(), centre.y() - r), QPointF(centre.x(), centre.y() + r));
    painter.setRenderHint(QPainter::Antialiasing);
    if (const int mask = pell::sky::MaskRadius(radius, m_mask); mask >= 0) {
        painter.setPen(QPen(QColor(255, 0, 0), 1));
        painter.drawEllipse(centre, mask, mask);
    }
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(Qt::black);
    const QString north = g_PellLibApp.XLoadString(pell::ids::North);
    const int northWidth = QFontMetrics(bold).horizontalAdvance(north) + 4;
    painter.drawText(QRectF(centre.x() - northWidth / 2.0, centre.y() - r + 3, northWidth,
                            QFontMetrics(bold).height()),
                     Qt::AlignHCenter | Qt::AlignTop, north);
    return m_background;
}

void CSkyPlot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, Background());
    painter.setRenderHint(QPainter::Antialiasing);
    DrawSatellites(painter);
    if (m_prediction) {
        QFont bold = font();
        bold.setBold(true);
        painter.setFont(bold);
        painter.setPen(palette().color(QPalette::WindowText));
        // Qt breaks lines at the line feed alone.
        QString label = PredictionLabel(m_offsetMs);
        label.remove(QLatin1Char('\r'));
        painter.drawText(rect().adjusted(6, 4, -6, -4), Qt::AlignLeft | Qt::AlignTop, label);
    }
}

void CSkyPlot::DrawSatellites(QPainter& painter) {
    m_placed.clear();
    const QPointF centre = Centre();
    const double radius = Radius();
    const QDateTime moment = ShownMoment();
    const rxio::GpsTime gpsMoment = rxio::GpsTime::FromUtc(moment);
    for (int index = 0; index < static_cast<int>(m_satellites.size()); ++index) {
        CSatelliteInfoEx& satellite = m_satellites[index];
        double azimuth = 0.0;
        double elevation = 0.0;
        if (m_prediction) {
            const std::optional<rxio::AzEl> direction =
                m_almanacs && m_observer
                    ? m_almanacs->CalculateAZ_EL(satellite.USI, gpsMoment, *m_observer)
                    : std::nullopt;
            if (!direction)
                continue;
            azimuth = direction->azimuth * kDegreesPerRadian;
            elevation = direction->elevation * kDegreesPerRadian;
            satellite.Azimuth = static_cast<std::uint16_t>(std::lround(azimuth) % 360);
            satellite.Elevation = static_cast<std::int8_t>(std::lround(elevation));
        } else {
            if (satellite.Azimuth == 0xFFFF || satellite.Elevation == 127)
                continue;
            azimuth = satellite.Azimuth;
            elevation = satellite.Elevation;
        }
        if (elevation < 0.0)
            continue;
        const QPointF at = pell::sky::Project(centre, radius, azimuth, elevation);
        if (m_showTracks)
            DrawTrack(painter, satellite, at, elevation, moment);
        m_placed.push_back({at, index});
    }

    const QSize icon = CSatelliteImageLib::GetImageSize();
    const QFontMetrics metrics = painter.fontMetrics();
    for (const Placed& placed : m_placed) {
        const CSatelliteInfoEx& satellite = m_satellites[placed.index];
        const EConstellation constellation = satellite.GetConstellation(false);
        // A satellite the receiver no longer reports fades here as its row does in the list.
        const int age = m_prediction ? 0 : satellite.GetAge();
        painter.setOpacity(age <= 1000 ? 1.0 : std::max(0.3, 1.0 - (age - 1000) / 10000.0));
        const QPoint topLeft(
            static_cast<int>(std::lround(placed.position.x() - icon.width() / 2.0)),
            static_cast<int>(std::lround(placed.position.y() - icon.height() / 2.0)));
        m_images.Draw(painter, topLeft, constellation, satellite.SS, satellite.Scintillation != 0);
        const QString label = satellite.GetSVN();
        const int width = metrics.horizontalAdvance(label) + 4;
        const QRectF box(placed.position.x() - width / 2.0,
                         placed.position.y() + icon.height() / 2.0, width, metrics.height());
        // A veil under the number keeps it legible over the tracks and the rings.
        painter.fillRect(box.adjusted(1, 1, -1, -1), QColor(255, 255, 255, 200));
        painter.setPen(IconColor(constellation, 0.8));
        painter.drawText(box, Qt::AlignHCenter | Qt::AlignTop, label);
    }
    painter.setOpacity(1.0);
}

void CSkyPlot::DrawTrack(QPainter& painter, const CSatelliteInfoEx& satellite, QPointF at,
                         double elevationDeg, const QDateTime& moment) {
    if (!m_almanacs || !m_observer)
        return;
    const pell::sky::TrackRequest request{m_almanacs,
                                          satellite.USI,
                                          rxio::GpsTime::FromUtc(moment),
                                          *m_observer,
                                          Centre(),
                                          static_cast<double>(Radius()),
                                          at,
                                          elevationDeg / kDegreesPerRadian};
    const QRgb colour = CSatelliteImageLib::GetIconColor(satellite.GetConstellation(false), 1.0);
    for (const bool future : {false, true}) {
        const std::vector<QPointF> points = pell::sky::Track(request, future).points;
        if (points.size() < 2)
            continue;
        const QRgb pen = pell::MixColors(colour, qRgb(255, 255, 255), future ? 255 : 64);
        painter.setPen(QPen(QColor::fromRgb(pen), 1));
        painter.drawPolyline(points.data(), static_cast<int>(points.size()));
    }
}

int CSkyPlot::HitTest(QPointF point) const {
    const double reach = CSatelliteImageLib::GetImageSize().width() / 2.0 + 2.0;
    int best = -1;
    double bestDistance = reach * reach;
    for (const Placed& placed : m_placed) {
        const QPointF delta = placed.position - point;
        const double distance = delta.x() * delta.x() + delta.y() * delta.y();
        if (distance <= bestDistance) {
            bestDistance = distance;
            best = placed.index;
        }
    }
    return best;
}

void CSkyPlot::resizeEvent(QResizeEvent* event) {
    m_background = {};
    QWidget::resizeEvent(event);
}

void CSkyPlot::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
        m_background = {};
    QWidget::changeEvent(event);
}

void CSkyPlot::showEvent(QShowEvent* event) {
    m_refresh.start(kRefreshPeriodMs, this);
    QWidget::showEvent(event);
}

void CSkyPlot::hideEvent(QHideEvent* event) {
    m_refresh.stop();
    HideToolTip();
    QWidget::hideEvent(event);
}

void CSkyPlot::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_refresh.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    emit refreshDue();
    update();
}

void CSkyPlot::mouseMoveEvent(QMouseEvent* event) {
    const int index = HitTest(event->position());
    if (index < 0) {
        HideToolTip();
        return;
    }
    if (index != m_toolTipIndex) {
        m_toolTip.SetSatellite(m_satellites[index], m_images);
        m_toolTipIndex = index;
    }
    m_toolTip.ShowAt(event->globalPosition().toPoint());
}

void CSkyPlot::leaveEvent(QEvent* event) {
    HideToolTip();
    QWidget::leaveEvent(event);
}

void CSkyPlot::HideToolTip() {
    m_toolTip.hide();
    m_toolTipIndex = -1;
}
