// Any reply to "print,alm" is refused with CAlmanacError or gives sound almanacs, one per
// satellite identifier at most.
#include "AlmanacFuzz.h"

#include <QString>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString reply =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    CheckAccepted([&reply] { return rxio::ParseAlmanacRecord(reply); }, 0, 254);
    return 0;
}
