#include "Sky.h"

#include "Nmea.h"
#include "SimulatedReceiver.h"
#include "rxio/NmeaDecoder.h"

#include <QTest>
#include <QTimeZone>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <numbers>

namespace {

using pell::test::Exec;
using pell::test::LinkedSimulator;
using pell::test::LinkName;
using rxio::GpsTime;
using rxsim::CSky;
using rxsim::ESystem;
using rxsim::SkySatellite;

constexpr double kDeg = std::numbers::pi / 180.0;

// An hour of sky, a minute apart, under two masks: what every epoch must hold, and satellites
// rising (marked rising, tracked since then) and setting (marked setting before they go). A
// pass that only grazes the mask may rise or set near its top, so marks are counted, not
// required of each.
TEST(SkyTest, AnHourOfSky) {
    const struct {
        const char* utc;
        double mask;
    } cases[] = {{"2026-01-01T00:00:00Z", 5.0}, {"2026-06-15T13:37:00Z", 20.0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.utc);
        const double mask = c.mask;
        const GpsTime start = GpsTime::FromUtc(QDateTime::fromString(c.utc, Qt::ISODate));
        CSky sky(start);
        sky.StartSession(start);
        std::map<int, SkySatellite> before;
        int risen = 0;
        int set = 0;
        for (int minute = 0; minute <= 60; ++minute) {
            SCOPED_TRACE(minute);
            const auto now = sky.At(GpsTime(start.Seconds() + minute * 60), mask, {});
            std::set<ESystem> systems;
            std::map<int, SkySatellite> byUsi;
            int scintillating = 0;
            int unknownSlot = 0;
            int used = 0;
            for (const SkySatellite& s : now) {
                EXPECT_TRUE(byUsi.emplace(s.usi, s).second) << "USI twice: " << s.usi;
                systems.insert(s.system);
                EXPECT_GE(s.elevation, mask) << s.usi;
                EXPECT_LE(s.tracked, minute * 60) << s.usi;
                EXPECT_FALSE(s.signalList.empty()) << s.usi;
                scintillating += s.scintillation ? 1 : 0;
                if (!s.slotKnown) {
                    ++unknownSlot;
                    EXPECT_EQ(s.system, ESystem::GLONASS);
                }
                if (s.status == 0) {
                    ++used;
                    EXPECT_GE(s.elevation, 15.0) << s.usi;
                }
                if (minute > 0 && !before.contains(s.usi)) {
                    EXPECT_LT(s.tracked, 60) << s.usi;
                    risen += s.mark == 1 ? 1 : 0;
                }
            }
            for (const auto& [usi, s] : before)
                set += !byUsi.contains(usi) && s.mark == 5 ? 1 : 0;
            EXPECT_EQ(systems.size(), 7u);
            EXPECT_EQ(scintillating, 1);
            EXPECT_EQ(unknownSlot, 1);
            EXPECT_GT(used, 0);
            EXPECT_LT(used, static_cast<int>(now.size()));
            before = std::move(byUsi);
        }
        EXPECT_GT(risen, 0);
        EXPECT_GT(set, 0);
    }
}

// A hidden satellite is gone from the sky; the others are as they were.
TEST(SkyTest, HiddenSatelliteLeavesTheRest) {
    const GpsTime t = GpsTime::FromUtc(QDateTime::currentDateTimeUtc());
    CSky all(t);
    CSky hiding(t);
    const auto full = all.At(t, 5, {});
    const auto hidden = std::find_if(full.begin(), full.end(), [](const SkySatellite& s) {
        return s.slotKnown && !s.scintillation;
    });
    ASSERT_NE(hidden, full.end());
    const auto rest = hiding.At(t, 5, {hidden->usi});
    ASSERT_EQ(rest.size(), full.size() - 1);
    for (std::size_t i = 0, j = 0; i < full.size(); ++i) {
        if (full[i].usi == hidden->usi)
            continue;
        EXPECT_EQ(rest[j].usi, full[i].usi);
        EXPECT_EQ(rest[j].elevation, full[i].elevation);
        ++j;
    }
}

// What print,alm answers, read back as the library reads it, predicts the sky to a few
// thousandths of a degree.
TEST(SkyTest, AlmanacRecordPredictsTheSky) {
    const GpsTime t = GpsTime::FromUtc(QDateTime::currentDateTimeUtc());
    CSky sky(t);
    rxio::CAlmanacStorage store;
    store.Set(rxio::ParseAlmanacRecord(rxsim::AlmanacRecord(sky.Almanacs())));
    EXPECT_EQ(store.Satellites().size(), sky.Almanacs().size());
    int predicted = 0;
    for (const SkySatellite& s : sky.At(t, 5, {}))
        if (const auto expected = store.CalculateAZ_EL(s.usi, t, sky.Observer())) {
            ++predicted;
            EXPECT_NEAR(expected->elevation / kDeg, s.elevation, 0.005) << s.usi;
            EXPECT_NEAR(std::remainder(expected->azimuth / kDeg - s.azimuth, 360.0), 0.0, 0.005)
                << s.usi;
        }
    EXPECT_GT(predicted, 30);
}

// Every sentence of an epoch is within NMEA's length (ours within 120) with a good checksum,
// and the decoder takes every one.
TEST(SkyTest, SentencesAreWellFormed) {
    const QDateTime utc = QDateTime::currentDateTimeUtc();
    CSky sky(GpsTime::FromUtc(utc));
    const QByteArray epoch = rxsim::NmeaEpoch(sky.At(GpsTime::FromUtc(utc), 5, {}), utc,
                                              sky.Observer(), rxsim::kNmeaSets);
    const QList<QByteArray> lines = epoch.trimmed().split('\n');
    for (QByteArray line : lines) {
        line = line.trimmed();
        const qsizetype star = line.lastIndexOf('*');
        ASSERT_GT(star, 0) << line.constData();
        EXPECT_LE(line.size(), line.startsWith("$PPELSAT") ? 120 : 82) << line.constData();
        unsigned char sum = 0;
        for (const char c : line.mid(1, star - 1))
            sum ^= static_cast<unsigned char>(c);
        EXPECT_EQ(line.mid(star + 1).toUInt(nullptr, 16), sum) << line.constData();
    }
    rxio::CNmeaDecoder decoder;
    decoder.Feed(epoch);
    EXPECT_EQ(decoder.Decoded(), static_cast<std::uint64_t>(lines.size()));
    EXPECT_EQ(decoder.Dropped(), 0u);
}

struct Recorder final : rxio::ISatListListener, rxio::IPositionListener {
    struct Epoch {
        std::vector<SatelliteInfo> sky;
        Position position;
    };
    void OnSatellites(const std::vector<SatelliteInfo>& sky) override { pending = sky; }
    void OnPosition(const Position& position) override {
        epochs.push_back({std::exchange(pending, {}), position});
    }
    std::vector<SatelliteInfo> pending;
    std::vector<Epoch> epochs;
};

class SkyStream : public testing::TestWithParam<LinkedSimulator::ELink> {};

// The controller reads the almanacs and asks for the five sets as the library does; what it
// decodes over each link is the simulator's sky: every satellite where those almanacs put it,
// one scintillating, one GLONASS without a slot, the hidden one nowhere, the observer's
// position with a fix, nothing under the mask the controller set; `dm` stops the stream.
TEST_P(SkyStream, DecodesTheSkyOfItsAlmanacs) {
    LinkedSimulator bench(GetParam(), pell::test::ShippedModel(), QStringLiteral("marten"));
    auto recorder = std::make_shared<Recorder>();
    bench.connection->RegisterSatListListener(recorder);
    bench.connection->RegisterPositionListener(recorder);

    // South and west of the default, where every sign of the position shows.
    const vex::POS_GEO observer{-33.45 * kDeg, -70.67 * kDeg, 570.25};
    bench.simulator.Sky().SetObserver(observer);
    // The highest satellite now stays in view through the test.
    // A clock that stands still: epochs go on a second apart all the same.
    const QDateTime now =
        QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch(), QTimeZone::utc());
    bench.simulator.SetClock([now] { return now; });
    CSky probe(GpsTime::FromUtc(now));
    probe.SetObserver(observer);
    const auto sky = probe.At(GpsTime::FromUtc(now), 10, {});
    const int hidden = std::max_element(sky.begin(), sky.end(), [](const auto& a, const auto& b) {
                           return a.elevation < b.elevation;
                       })->usi;
    bench.simulator.GetFaults().hiddenSatellites = {hidden};

    QString almanacError = QStringLiteral("no answer yet");
    bench.connection->ReadAlmanacs(2000, [&](const QString& error) { almanacError = error; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return almanacError != QLatin1String("no answer yet"); }));
    ASSERT_EQ(almanacError, QString());
    const rxio::CAlmanacStorage& store = bench.connection->Almanacs();
    EXPECT_GT(store.Satellites().size(), 80u);

    QStringList enable;
    QStringList disable;
    for (const QString& set : rxsim::kNmeaSets) {
        enable << QStringLiteral("em,/cur/term,") + set;
        disable << QStringLiteral("dm,/cur/term,") + set;
    }
    EXPECT_FALSE(Exec(*bench.connection, QStringLiteral("set,pos/elm,12")).error);
    EXPECT_FALSE(Exec(*bench.connection, enable.join(QLatin1Char(';'))).error);
    ASSERT_TRUE(QTest::qWaitFor([&] { return recorder->epochs.size() >= 2; }, 5000));
    // Epochs sent before the answer have come with it.
    EXPECT_FALSE(Exec(*bench.connection, disable.join(QLatin1Char(';'))).error);
    const std::size_t stopped = recorder->epochs.size();

    for (std::size_t i = 0; i < recorder->epochs.size(); ++i) {
        const Recorder::Epoch& epoch = recorder->epochs[i];
        EXPECT_EQ(epoch.position.utc, now.addSecs(static_cast<qint64>(i)));
        EXPECT_NE(epoch.position.solution, rxio::ESolutionType::None);
        EXPECT_NEAR(epoch.position.geo.lat, observer.lat, 1e-7);
        EXPECT_NEAR(epoch.position.geo.lon, observer.lon, 1e-7);
        EXPECT_NEAR(epoch.position.geo.height, observer.height, 1e-3);
        const GpsTime t = GpsTime::FromUtc(epoch.position.utc);
        int predicted = 0;
        int scintillating = 0;
        int withoutSlot = 0;
        std::set<int> usis;
        std::set<int> statuses;
        std::set<int> marks;
        for (const auto& s : epoch.sky) {
            EXPECT_TRUE(usis.insert(s.USI).second) << int(s.USI);
            EXPECT_FALSE(s.SNR.empty()) << int(s.USI);
            statuses.insert(s.SS);
            marks.insert(static_cast<int>(s.ElevationMark));
            scintillating += s.Scintillation;
            if (s.NN == 255 && s.USI >= 38 && s.USI <= 70) {
                ++withoutSlot;
                EXPECT_EQ(s.Elevation, 127);
                continue;
            }
            EXPECT_GE(s.Elevation, 12) << int(s.USI);
            const auto expected = store.CalculateAZ_EL(s.USI, t, observer);
            if (!expected)
                continue;
            ++predicted;
            EXPECT_NEAR(s.Elevation, expected->elevation / kDeg, 1.0) << int(s.USI);
            const double azimuth = std::remainder(s.Azimuth - expected->azimuth / kDeg, 360.0);
            EXPECT_NEAR(azimuth, 0.0, 1.0) << int(s.USI);
        }
        EXPECT_GT(predicted, 10); // at least 14 from there, all week
        EXPECT_EQ(scintillating, 1);
        EXPECT_EQ(withoutSlot, 1);
        EXPECT_EQ(statuses, (std::set<int>{0, 6}));
        EXPECT_TRUE(marks.contains(1) && marks.contains(5));
        EXPECT_FALSE(usis.contains(hidden));
    }
    QTest::qWait(1100);
    EXPECT_EQ(recorder->epochs.size(), stopped);
}

INSTANTIATE_TEST_SUITE_P(Links, SkyStream,
                         testing::Values(LinkedSimulator::InProcess, LinkedSimulator::Tcp,
                                         LinkedSimulator::Pty),
                         LinkName);

} // namespace
