// The status sheet's drawing: one paint of the sky plot and one update of the satellite list,
// with 120 satellites of every constellation, rendered offscreen into an image.
#include "Sky.h"
#include "status/SatListCtrl.h"
#include "status/SkyPlot.h"

#include <QImage>
#include <benchmark/benchmark.h>
#include <cmath>
#include <numbers>

namespace {

using SatelliteInfo = rxio::ISatListListener::SatelliteInfo;

constexpr double kDeg = std::numbers::pi / 180.0;

const QDateTime kMoment(QDate(2026, 3, 1), QTime(6, 0), Qt::UTC);
const vex::POS_GEO kObserver{1.3521 * kDeg, 103.8198 * kDeg, 15.0};

// 120 satellites: every almanac satellite of the simulator's sky where the almanac puts it
// (those below the horizon spread over the sky instead, where their tracks end at once), and
// GLONASS and SBAS satellites, which have no tracks, to make up the number.
std::vector<CSatelliteInfoEx> Satellites(const rxio::CAlmanacStorage& store) {
    std::vector<int> usis = store.Satellites();
    for (int usi = 38; usi <= 59; ++usi)
        usis.push_back(usi);
    for (int usi = 120; usis.size() < 120; ++usi)
        usis.push_back(usi);
    std::vector<CSatelliteInfoEx> satellites;
    const rxio::GpsTime at = rxio::GpsTime::FromUtc(kMoment);
    for (std::size_t i = 0; i < usis.size(); ++i) {
        SatelliteInfo info;
        info.USI = static_cast<std::uint8_t>(usis[i]);
        info.NN = info.USI >= 38 && info.USI <= 61 ? static_cast<std::uint8_t>(i % 24 + 1) : 255;
        info.SS = i % 4 == 0 ? 6 : 0;
        info.SNR = {{0, static_cast<std::uint8_t>(30 + i % 20)}, {3, 35}};
        info.TC = static_cast<std::uint16_t>(i * 37);
        const auto direction = store.CalculateAZ_EL(usis[i], at, kObserver);
        if (direction && direction->elevation > 0) {
            info.Azimuth = static_cast<std::uint16_t>(std::lround(direction->azimuth / kDeg) % 360);
            info.Elevation = static_cast<std::int8_t>(std::lround(direction->elevation / kDeg));
        } else {
            info.Azimuth = static_cast<std::uint16_t>(i * 47 % 360);
            info.Elevation = static_cast<std::int8_t>(5 + i * 13 % 80);
        }
        satellites.emplace_back(info);
    }
    return satellites;
}

void PaintSkyPlot(benchmark::State& state) {
    const rxsim::CSky sky(rxio::GpsTime::FromUtc(kMoment));
    rxio::CAlmanacStorage store;
    store.Set(sky.Almanacs());
    CSkyPlot plot;
    plot.resize(400, 400);
    plot.SetClock([] { return kMoment; });
    plot.SetAlmanacs(&store);
    plot.SetObserver(kObserver);
    plot.SetElevationMask(10.0);
    plot.SetShowTracks(state.range(0) != 0);
    plot.SetSatellites(Satellites(store));
    QImage image(plot.size(), QImage::Format_ARGB32_Premultiplied);
    plot.render(&image); // the background's pixmap and the icons are made once
    for (auto _ : state) {
        plot.render(&image);
        benchmark::DoNotOptimize(image.constBits());
    }
    state.counters["placed"] = static_cast<double>(plot.PlacedSatellites().size());
}
BENCHMARK(PaintSkyPlot)->ArgName("tracks")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void UpdateSatelliteList(benchmark::State& state) {
    const rxsim::CSky sky(rxio::GpsTime::FromUtc(kMoment));
    rxio::CAlmanacStorage store;
    store.Set(sky.Almanacs());
    std::vector<CSatelliteInfoEx> satellites = Satellites(store);
    CSatListCtrl list;
    list.resize(480, 640);
    list.Model().SetSatellites(satellites);
    QImage image(list.size(), QImage::Format_ARGB32_Premultiplied);
    list.render(&image);
    std::uint8_t snr = 30;
    for (auto _ : state) {
        // A new epoch: every satellite reported again with new strengths, then the list drawn.
        snr = static_cast<std::uint8_t>(30 + (snr + 1) % 20);
        for (CSatelliteInfoEx& satellite : satellites) {
            SatelliteInfo info = satellite;
            info.SNR[0] = snr;
            satellite.Update(info);
        }
        list.Model().SetSatellites(satellites);
        list.render(&image);
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(UpdateSatelliteList)->Unit(benchmark::kMillisecond);

} // namespace
