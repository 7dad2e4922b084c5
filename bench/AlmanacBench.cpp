// One almanac evaluation: azimuth and elevation of one satellite through the store, as the sky
// plot asks for each point of a track.
#include "rxio/Almanac.h"

#include <benchmark/benchmark.h>

namespace {

// PRN 2 of the YUMA almanac of week 2086 (January 2020).
rxio::Almanac Prn2() {
    rxio::Almanac a;
    a.usi = rxio::usi::Gps(2);
    a.week = 2086;
    a.toa = 503808.0;
    a.eccentricity = 0.1965904236E-001;
    a.inclination = 0.9575719273;
    a.rateOfRightAscension = -0.7920329914E-008;
    a.sqrtA = 5153.558105;
    a.rightAscension = -0.6539035027E+000;
    a.argumentOfPerigee = -1.681170289;
    a.meanAnomaly = 0.3070212738E+001;
    a.af0 = -0.3786087036E-003;
    a.af1 = -0.7275957614E-011;
    return a;
}

void CalculateAzEl(benchmark::State& state) {
    rxio::CAlmanacStorage store;
    store.Set(Prn2());
    const vex::POS_GEO observer{0.8269, 0.1491, 408.0}; // radians, radians, metres
    double seconds = rxio::GpsTime::FromWeek(2086, 503808.0).Seconds();
    for (auto _ : state) {
        seconds += 300.0; // a track's five-minute step
        benchmark::DoNotOptimize(store.CalculateAZ_EL(2, rxio::GpsTime(seconds), observer));
    }
}
BENCHMARK(CalculateAzEl);

} // namespace
