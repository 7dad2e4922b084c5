// Any byte stream, in any chunking, leaves the NMEA decoder sane: every record it hands out is in
// range, chunking changes nothing, and a good sentence after the junk is decoded.
#include "rxio/NmeaDecoder.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

struct Run {
    std::uint64_t decoded = 0;
    std::uint64_t dropped = 0;
    std::size_t satellites = 0;
    bool lastHasSatelliteFive = false;
};

Run Decode(const QByteArray& stream, qsizetype chunk) {
    Run run;
    rxio::CNmeaDecoder decoder;
    decoder.onSky = [&run](const std::vector<rxio::CNmeaDecoder::SatelliteInfo>& sky) {
        run.lastHasSatelliteFive = false;
        for (const auto& s : sky) {
            if ((s.Elevation != 127 && (s.Elevation < -90 || s.Elevation > 90)) ||
                (s.Azimuth != 0xFFFF && s.Azimuth > 360) || s.USI == 0 || s.USI == 255 ||
                s.Scintillation > 1 || (s.NN != 255 && (s.NN < 1 || s.NN > 32)))
                std::abort();
            for (const auto& [slot, snr] : s.SNR)
                if (slot < 0 || slot > 7 || snr > 99)
                    std::abort();
            run.lastHasSatelliteFive = run.lastHasSatelliteFive || s.USI == 5;
        }
        run.satellites += sky.size();
    };
    decoder.onPosition = [](const rxio::CNmeaDecoder::Position& p) {
        if (std::abs(p.geo.lat) > 1.6 || std::abs(p.geo.lon) > 3.2)
            std::abort();
    };
    for (qsizetype i = 0; i < stream.size(); i += chunk)
        decoder.Feed(QByteArrayView(stream).sliced(i, std::min(chunk, stream.size() - i)));
    decoder.Feed("\n$GPGSV,1,1,01,05,40,100,45*49\r\n");
    decoder.Flush();
    run.decoded = decoder.Decoded();
    run.dropped = decoder.Dropped();
    return run;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const QByteArray stream(reinterpret_cast<const char*>(data + 1),
                            static_cast<qsizetype>(size - 1));
    const Run whole = Decode(stream, stream.size() + 1);
    const Run chunked = Decode(stream, 1 + data[0] % 64);
    if (!whole.lastHasSatelliteFive || whole.decoded != chunked.decoded ||
        whole.dropped != chunked.dropped || whole.satellites != chunked.satellites)
        std::abort();
    return 0;
}
