// Any text given as a YUMA almanac is refused with CAlmanacError or gives sound almanacs.
#include "AlmanacFuzz.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckAccepted(rxio::ParseYuma, {reinterpret_cast<const char*>(data), size});
    return 0;
}
