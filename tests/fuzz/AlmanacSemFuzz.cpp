// Any text given as a SEM almanac is refused with CAlmanacError or gives sound almanacs.
#include "AlmanacFuzz.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckAccepted(rxio::ParseSem, {reinterpret_cast<const char*>(data), size});
    return 0;
}
