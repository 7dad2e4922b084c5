// Any bytes as a caster's source table: records within the bounds, every stream with a mount
// point, every coordinate known and in range or unknown; filtering by the same bytes never fails.
#include "config/NtripSourceTable.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void Check(bool condition) {
    if (!condition)
        std::abort();
}

void CheckPosition(double latitude, double longitude) {
    Check(std::isnan(latitude) || std::fabs(latitude) <= 90.0);
    Check(std::isnan(longitude) || std::fabs(longitude) <= 180.0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const ntrip::SourceTable table = ntrip::ParseSourceTable(QString::fromUtf8(text));
    Check(table.streams.size() + table.casters.size() + table.networks.size() <=
          ntrip::kMaxRecords);
    const QString filter = QString::fromUtf8(text.substr(0, 64));
    for (const ntrip::Stream& stream : table.streams) {
        Check(!stream.mountpoint.trimmed().isEmpty());
        Check(stream.carrier >= -1 && stream.carrier <= 2);
        Check(stream.solution >= -1 && stream.solution <= 1);
        CheckPosition(stream.latitude, stream.longitude);
        if (stream.HasPosition())
            Check(ntrip::DistanceKm(stream.latitude, stream.longitude, 0, 0) <= 20016.0);
        ntrip::Matches(stream, filter);
        ntrip::IsRtcm3(stream.format);
    }
    for (const ntrip::Caster& caster : table.casters) {
        CheckPosition(caster.latitude, caster.longitude);
        Check(caster.port <= 65535 && caster.fallbackPort <= 65535);
    }
    return 0;
}
