// Any byte stream, in any chunking, leaves the frame parser consistent: it never crashes, never
// holds more than one frame's worth, and hands out only well-formed frames.
#include "rxio/Framing.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const QByteArray stream(reinterpret_cast<const char*>(data + 1),
                            static_cast<qsizetype>(size - 1));
    const qsizetype chunk = 1 + data[0] % 64;

    rxio::CFrameParser parser;
    parser.onFrame = [](const rxio::Frame& frame) {
        if (frame.id.size() > 8 ||
            frame.payload.size() > qsizetype(rxio::CFrameParser::kMaxPayload))
            std::abort();
    };
    parser.onNmea = [](const QByteArray& line) {
        if (line.isEmpty() || line.front() != '$' || line.contains('\n') ||
            line.size() > qsizetype(rxio::CFrameParser::kMaxNmeaLine))
            std::abort();
    };
    for (qsizetype i = 0; i < stream.size(); i += chunk)
        parser.Feed(stream.mid(i, chunk));
    if (parser.Pending() > rxio::CFrameParser::kMaxPayload + 16)
        std::abort();
    return 0;
}
