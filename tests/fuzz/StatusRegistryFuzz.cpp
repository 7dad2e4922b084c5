// Any bytes as the satellite status registry: no crash, and every entry it keeps is a code the
// receiver can send (0..254), filed under that code.
#include "status/StatusRegistry.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto table = pell::ParseStatusRegistry(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    for (const auto& [code, status] : table)
        if (code == 255 || status.code != code)
            std::abort();
    return 0;
}
