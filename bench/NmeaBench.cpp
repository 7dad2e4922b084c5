// NMEA decoding throughput over the real captures of three receivers, as one byte stream.
#include "rxio/NmeaDecoder.h"

#include <QFile>
#include <benchmark/benchmark.h>

namespace {

QByteArray Captures() {
    QByteArray all;
    for (const char* name : {"quectelLC79D.log", "ublox-zed-f9p-nmea.log", "unicore-um621.log"}) {
        QFile file(QStringLiteral(NMEA_DATA_DIR "/") + QLatin1String(name));
        if (file.open(QIODevice::ReadOnly))
            all += file.readAll();
    }
    return all;
}

void DecodeCaptures(benchmark::State& state) {
    const QByteArray stream = Captures();
    if (stream.isEmpty()) {
        state.SkipWithError("captures not found");
        return;
    }
    std::size_t satellites = 0;
    rxio::CNmeaDecoder decoder;
    decoder.onSky = [&](const std::vector<rxio::CNmeaDecoder::SatelliteInfo>& sky) {
        satellites += sky.size();
    };
    for (auto _ : state) {
        decoder.Feed(stream);
        decoder.Flush();
    }
    benchmark::DoNotOptimize(satellites);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * stream.size());
}

} // namespace

BENCHMARK(DecodeCaptures);
