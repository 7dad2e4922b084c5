#include "Sky.h"

#include <gtest/gtest.h>
#include <numbers>

namespace {

using pellctl::Epoch;
using Satellite = rxio::ISatListListener::SatelliteInfo;
using Position = rxio::IPositionListener::Position;

Satellite Sat(int usi, int elevation, int azimuth, std::map<int, std::uint8_t> snr, bool used,
              int slot = 255) {
    Satellite s;
    s.USI = static_cast<std::uint8_t>(usi);
    s.Elevation = static_cast<std::int8_t>(elevation);
    s.Azimuth = static_cast<std::uint16_t>(azimuth);
    s.SNR = std::move(snr);
    s.SS = used ? 0 : 6;
    s.NN = static_cast<std::uint8_t>(slot);
    return s;
}

Position Fix() {
    constexpr double kRadians = std::numbers::pi / 180.0;
    Position p;
    p.geo = {-45.8775672 * kRadians, 170.5001113 * kRadians, 16.0};
    p.solution = rxio::ESolutionType::RtkFixed;
    p.utc = QDateTime(QDate(2019, 4, 12), QTime(0, 39, 56), Qt::UTC);
    p.satellitesUsed = 2;
    return p;
}

// Sky and position of an epoch come together; a sky without a position ends at the next sky or
// when flushed.
TEST(SkyTest, EpochsArePutBackTogether) {
    std::vector<Epoch> out;
    int held = 0;
    pellctl::CEpochCollector collector([&](const Epoch& e) { out.push_back(e); }, [&] { ++held; });
    const std::vector<Satellite> a{Sat(5, 40, 120, {}, true)}, b{Sat(7, 10, 20, {}, false)};
    collector.OnSatellites(a);
    collector.OnPosition(Fix());
    collector.OnPosition(Fix()); // an epoch without satellites
    collector.OnSatellites(b);   // without a position...
    collector.OnSatellites(a);   // ...ends here
    collector.Flush();
    collector.Flush();
    ASSERT_EQ(out.size(), 4u);
    EXPECT_EQ(held, 3);
    const std::pair<std::size_t, bool> expected[] = {{1, true}, {0, true}, {1, false}, {1, false}};
    for (std::size_t i = 0; i < out.size(); ++i) {
        EXPECT_EQ(out[i].sky.size(), expected[i].first) << i;
        EXPECT_EQ(out[i].position.has_value(), expected[i].second) << i;
    }
    EXPECT_EQ(out[2].sky[0].USI, 7);
}

TEST(SkyTest, EpochAsTextAndJson) {
    const std::vector<Satellite> sky{Sat(13, 37, 124, {{0, 29}, {3, 41}}, true),
                                     Sat(39, 127, 0xFFFF, {}, false),
                                     Sat(45, -5, 360, {{0, 7}}, false, 12)};
    Position noFix;
    struct Case {
        const char* name;
        Epoch epoch;
        const char* text;
        const char* json;
    } const cases[] = {
        {"fix",
         {sky, Fix()},
         "epoch 2019-04-12T00:39:56Z  fix: RTK fixed  -45.8775672 170.5001113 16.00 m  "
         "satellites: 3, used: 1\n"
         "  sat  system     az   el  used  SNR (slot:dB-Hz)\n"
         "  G13  GPS       124   37  yes   0:29 3:41\n"
         "  R??  GLONASS     -    -  no\n"
         "  R12  GLONASS   360   -5  no    0:7\n",
         R"({"fix":"RTK fixed","position":{"height":16,"lat":-45.8775672,"lon":170.5001113},)"
         R"("satellites":[{"azimuth":124,"elevation":37,"id":"G13","number":13,)"
         R"("snr":{"0":29,"3":41},"system":"GPS","used":true,"usi":13},)"
         R"({"azimuth":null,"elevation":null,"id":"R??","number":null,"snr":{},)"
         R"("system":"GLONASS","used":false,"usi":39},)"
         R"({"azimuth":360,"elevation":-5,"id":"R12","number":12,"snr":{"0":7},)"
         R"("system":"GLONASS","used":false,"usi":45}],"satellitesUsed":2,)"
         R"("utc":"2019-04-12T00:39:56Z"})"
         "\n"},
        {"no fix, no time, no sky",
         {{}, noFix},
         "epoch (no time)  fix: none  satellites: 0, used: 0\n",
         R"({"fix":"none","satellites":[],"utc":null})"
         "\n"},
        {"sky without position",
         {{sky[0]}, std::nullopt},
         "epoch (no time)  fix: (not reported)  satellites: 1, used: 1\n"
         "  sat  system     az   el  used  SNR (slot:dB-Hz)\n"
         "  G13  GPS       124   37  yes   0:29 3:41\n",
         R"({"fix":null,"satellites":[{"azimuth":124,"elevation":37,"id":"G13","number":13,)"
         R"("snr":{"0":29,"3":41},"system":"GPS","used":true,"usi":13}],"utc":null})"
         "\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(pellctl::EpochText(c.epoch).toStdString(), c.text);
        EXPECT_EQ(pellctl::EpochJson(c.epoch).toStdString(), c.json);
    }
}

} // namespace
