#pragma once

#include "rxio/rxio_export.h"

#include <QByteArray>
#include <cstdint>
#include <functional>

namespace rxio {

// What the receiver sends, taken apart; see docs/protocol.md.
enum class EFrameKind { Reply, Error, Notice };

struct Frame {
    EFrameKind kind;
    QByteArray id;
    QByteArray payload;
};

// Splits the receiver's byte stream into frames and NMEA lines. Never fails: bytes that fit
// neither are skipped until the stream makes sense again, and counted.
class RXIO_EXPORT CFrameParser {
public:
    static constexpr std::size_t kMaxPayload = 0x100000;
    static constexpr std::size_t kMaxNmeaLine = 120;

    std::function<void(const Frame&)> onFrame;
    std::function<void(const QByteArray&)> onNmea;

    void Feed(const QByteArray& bytes);
    // Bytes held for a frame or line not yet complete.
    std::size_t Pending() const { return static_cast<std::size_t>(m_buffer.size()); }
    std::uint64_t GarbageBytes() const { return m_garbage; }
    void Reset();

private:
    enum class EStep { Done, NeedMore, Garbage };
    EStep TakeFrame();
    EStep TakeNmea();

    QByteArray m_buffer;
    qsizetype m_discardNmea = 0; // an over-long line being skipped, when > 0
    std::uint64_t m_garbage = 0;
};

// `%<id>%<command>\r\n`. The command must be one line; ids are 1 to 8 alphanumerics.
RXIO_EXPORT QByteArray EncodeCommand(const QByteArray& id, const QString& command);

} // namespace rxio
