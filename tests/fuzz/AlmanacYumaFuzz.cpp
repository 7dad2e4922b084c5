// Any text given as a YUMA almanac is refused with CAlmanacError or gives sound almanacs.
#include "AlmanacFuzz.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    CheckAccepted([text] { return rxio::ParseYuma(text, 2086); }, 1, 42);
    return 0;
}
