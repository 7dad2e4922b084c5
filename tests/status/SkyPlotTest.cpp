#include "status/SkyPlot.h"

#include "Sky.h"
#include "TestSupport.h"
#include "status/SkyGeometry.h"

#include <QImage>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace {

using SatelliteInfo = rxio::ISatListListener::SatelliteInfo;

constexpr double kDeg = std::numbers::pi / 180.0;

// A plot whose radius is exactly `radius` pixels.
void SizeFor(CSkyPlot& plot, unsigned radius) {
    plot.resize(400, 400);
    const int margin = 200 - static_cast<int>(plot.Radius());
    const int side = 2 * (static_cast<int>(radius) + margin);
    plot.resize(side, side);
    ASSERT_EQ(plot.Radius(), radius);
}

bool IsRed(QRgb pixel) {
    return qRed(pixel) > 150 && qGreen(pixel) < 120 && qBlue(pixel) < 120;
}

bool IsGrey(QRgb pixel) {
    return qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel) && qRed(pixel) < 230;
}

// Distances from the centre, along a ray at `azimuthDeg`, of the pixels that `match`.
template <class Match>
std::vector<int> AlongRay(const QImage& image, QPointF centre, unsigned radius, double azimuthDeg,
                          Match match) {
    std::vector<int> hits;
    // Clear of the diameters' crossing and of the horizon.
    for (int r = 3; r < static_cast<int>(radius) - 3; ++r) {
        // Every pixel the ray crosses at this distance, so that a thin ring is not missed.
        for (const double d : {r - 0.5, r + 0.0}) {
            const QPointF at =
                pell::sky::Project(centre, radius, azimuthDeg, 90.0 - 90.0 * d / radius);
            if (match(image.pixel(at.toPoint()))) {
                hits.push_back(r);
                break;
            }
        }
    }
    return hits;
}

// Whether `hits` has a pixel within one of each of `expected` and none elsewhere.
bool MatchesRings(const std::vector<int>& hits, const std::vector<int>& expected) {
    for (const int hit : hits) {
        if (std::none_of(expected.begin(), expected.end(),
                         [hit](int r) { return std::abs(hit - r) <= 1; }))
            return false;
    }
    return std::all_of(expected.begin(), expected.end(), [&](int r) {
        return std::any_of(hits.begin(), hits.end(),
                           [r](int hit) { return std::abs(hit - r) <= 1; });
    });
}

TEST(SkyPlotTest, RingsAndMaskOnTheRenderedPlot) {
    struct Case {
        unsigned radius;
        double mask;
        std::vector<int> ringElevations;
        int maskRadius; // -1: none
    };
    const Case cases[] = {
        {180, 10.0, {30, 60}, 160},
        {189, -1.0, {10, 20, 30, 40, 50, 60, 70, 80}, -1},
        {189, 0.0, {10, 20, 30, 40, 50, 60, 70, 80}, 189},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "radius " << c.radius << ", mask " << c.mask);
        std::vector<int> elevations;
        std::vector<int> radii;
        for (const pell::sky::Ring& ring : pell::sky::Rings(c.radius, 1)) {
            elevations.push_back(ring.elevationDeg);
            radii.push_back(ring.radius);
        }
        EXPECT_EQ(elevations, c.ringElevations);
        EXPECT_EQ(pell::sky::MaskRadius(c.radius, c.mask), c.maskRadius);

        CSkyPlot plot;
        SizeFor(plot, c.radius);
        plot.SetElevationMask(c.mask);
        const QImage image = plot.grab().toImage();
        // A ray clear of the diameters and of the ring labels.
        const std::vector<int> grey = AlongRay(image, plot.Centre(), c.radius, 37.0, IsGrey);
        EXPECT_TRUE(MatchesRings(grey, radii)) << testing::PrintToString(grey);
        const std::vector<int> red = AlongRay(image, plot.Centre(), c.radius + 4, 37.0, IsRed);
        if (c.maskRadius < 0)
            EXPECT_TRUE(red.empty());
        else
            EXPECT_TRUE(MatchesRings(red, {c.maskRadius}));
    }
}

TEST(SkyPlotTest, SatellitesStandWhereTheirDirectionPutsThem) {
    struct Case {
        std::uint16_t azimuth;
        std::int8_t elevation;
        QPointF offset; // from the centre, in radii; NaN: not drawn
    };
    const double none = std::nan("");
    const Case cases[] = {
        {0, 90, {0, 0}},
        {90, 0, {1, 0}},
        {180, 0, {0, 1}},
        {270, 45, {-0.5, 0}},
        {0, 30, {0, -2 / 3.}},
        {45, -1, {none, none}},
        {0xFFFF, 40, {none, none}},
        {120, 127, {none, none}},
    };
    CSkyPlot plot;
    SizeFor(plot, 180);
    std::vector<CSatelliteInfoEx> satellites;
    for (int i = 0; i < static_cast<int>(std::size(cases)); ++i) {
        SatelliteInfo info;
        info.USI = static_cast<std::uint8_t>(i + 1);
        info.Azimuth = cases[i].azimuth;
        info.Elevation = cases[i].elevation;
        info.SS = 0;
        satellites.emplace_back(info);
    }
    plot.SetSatellites(satellites);
    const QImage image = plot.grab().toImage();
    const QRgb background = plot.palette().color(QPalette::Base).rgb();

    std::map<int, QPointF> placed;
    for (const CSkyPlot::Placed& p : plot.PlacedSatellites())
        placed[p.index] = p.position;
    for (int i = 0; i < static_cast<int>(std::size(cases)); ++i) {
        SCOPED_TRACE(testing::Message() << "azimuth " << cases[i].azimuth << ", elevation "
                                        << int{cases[i].elevation});
        if (std::isnan(cases[i].offset.x())) {
            EXPECT_FALSE(placed.contains(i));
            continue;
        }
        ASSERT_TRUE(placed.contains(i));
        const QPointF expected = plot.Centre() + cases[i].offset * 180.0;
        EXPECT_NEAR(placed[i].x(), expected.x(), 1e-6);
        EXPECT_NEAR(placed[i].y(), expected.y(), 1e-6);
        EXPECT_EQ(plot.HitTest(expected + QPointF(2, -2)), i);
        // Its icon is drawn there.
        EXPECT_NE(image.pixel(expected.toPoint() + QPoint(1, 1)), background);
    }
}

TEST(SkyPlotTest, TheTimeLabelCountsFromNow) {
    pell::test::ScopedEnglish english;
    EXPECT_EQ(CSkyPlot::PredictionLabel(0), QStringLiteral("Time:\r\n+00:00"));
    EXPECT_EQ(CSkyPlot::PredictionLabel(-(2 * 60 + 30) * 60000LL),
              QStringLiteral("Time:\r\n-02:30"));
    EXPECT_EQ(CSkyPlot::PredictionLabel(12 * 3600000LL), QStringLiteral("Time:\r\n+12:00"));
}

TEST(SkyPlotTest, TheToolTipExplainsTheSatellite) {
    pell::test::ScopedEnglish english;
    struct Case {
        std::uint8_t usi;
        std::uint8_t nn;
        std::uint8_t scintillation;
        QStringList lines; // that the tip holds
        QStringList absent;
    };
    const QString warning = QStringLiteral("This SV is experiencing ionospheric scintillations");
    const QString channel = QStringLiteral("Frequency channel");
    const Case cases[] = {
        {12,
         255,
         0,
         {QStringLiteral("GPS G12"), QStringLiteral("Elevation: 45°")},
         {warning, channel}},
        {38,
         5,
         0,
         {QStringLiteral("GLONASS R5"), QStringLiteral("Frequency channel: -7")},
         {warning}},
        {75, 255, 1, {QStringLiteral("Galileo E5"), warning}, {channel}},
    };
    CSatelliteImageLib images;
    CSatelliteToolTip tip;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.usi);
        SatelliteInfo info;
        info.USI = c.usi;
        info.NN = c.nn;
        info.Scintillation = c.scintillation;
        info.Elevation = 45;
        info.Azimuth = 200;
        info.SS = 0;
        tip.SetSatellite(CSatelliteInfoEx(info), images);
        for (const QString& line : c.lines)
            EXPECT_TRUE(tip.Text().contains(line)) << tip.Text().toStdString();
        for (const QString& line : c.absent)
            EXPECT_FALSE(tip.Text().contains(line)) << tip.Text().toStdString();
    }
}

TEST(SkyPlotTest, TracksEndAtTheHorizonAtADayOrWithoutAnAlmanac) {
    // The simulator's orbits, seen from Singapore.
    const rxio::GpsTime now =
        rxio::GpsTime::FromUtc(QDateTime(QDate(2026, 3, 1), QTime(6, 0), Qt::UTC));
    const rxsim::CSky sky(now);
    rxio::CAlmanacStorage store;
    store.Set(sky.Almanacs());
    const vex::POS_GEO observer{1.3521 * kDeg, 103.8198 * kDeg, 15.0};
    auto elevationAt = [&](int usi, double seconds) {
        return store.CalculateAZ_EL(usi, rxio::GpsTime(now.Seconds() + seconds), observer)
            ->elevation;
    };
    // One satellite that sets within the day, one that never does (inclined geosynchronous).
    int setting = 0;
    int neverSets = 0;
    for (const int usi : store.Satellites()) {
        if (elevationAt(usi, 0) <= 10 * kDeg)
            continue;
        bool alwaysUp = true;
        for (int hour = -24; hour <= 24 && alwaysUp; ++hour)
            alwaysUp = elevationAt(usi, hour * 3600.0) > 1 * kDeg;
        int& pick = alwaysUp ? neverSets : setting;
        if (pick == 0)
            pick = usi; // GPS comes first: a pass of a few hours
    }
    ASSERT_NE(setting, 0);
    ASSERT_NE(neverSets, 0);

    const QPointF centre(200, 200);
    const double radius = 180;
    struct Case {
        const char* name;
        int usi;
        bool toADay;
        bool hasAlmanac;
    };
    const Case cases[] = {{"sets", setting, false, true},
                          {"never sets", neverSets, true, true},
                          {"GLONASS", 40, false, false}};
    for (const Case& c : cases) {
        for (const bool future : {false, true}) {
            SCOPED_TRACE(testing::Message() << c.name << (future ? ", future" : ", past"));
            const auto start = store.CalculateAZ_EL(c.usi, now, observer);
            const rxio::AzEl direction = start.value_or(rxio::AzEl{0, 45 * kDeg});
            const pell::sky::TrackRequest request{&store,
                                                  c.usi,
                                                  now,
                                                  observer,
                                                  centre,
                                                  radius,
                                                  pell::sky::ProjectRad(centre, radius, direction),
                                                  direction.elevation};
            const pell::sky::TrackLine track = pell::sky::Track(request, future);
            if (!c.hasAlmanac) {
                EXPECT_EQ(track.points.size(), 1U);
                continue;
            }
            ASSERT_GE(track.points.size(), 2U);
            EXPECT_EQ(track.endOffsetMs > 0, future);
            const std::int64_t reach = std::llabs(track.endOffsetMs);
            EXPECT_LE(reach, pell::sky::kTrackSpanMs);
            for (const QPointF& point : track.points) {
                const QPointF d = point - centre;
                EXPECT_LE(std::hypot(d.x(), d.y()), radius);
            }
            if (c.toADay) {
                EXPECT_GT(reach, pell::sky::kTrackSpanMs / 2);
            } else {
                EXPECT_LT(reach, pell::sky::kTrackSpanMs / 2);
                // The next step would have been below the horizon: the last point is near it.
                const QPointF d = track.points.back() - centre;
                EXPECT_GT(std::hypot(d.x(), d.y()), radius - 40);
            }
            // Segments stay short enough to look round.
            for (std::size_t i = 1; i < track.points.size(); ++i) {
                const QPointF d = track.points[i] - track.points[i - 1];
                EXPECT_LT(std::hypot(d.x(), d.y()), 60.0);
            }
        }
    }
}

} // namespace
