#pragma once

#include "rxio/Listeners.h"
#include "rxio/rxio_export.h"

#include <QByteArray>
#include <QByteArrayView>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace rxio {

// Turns NMEA 0183 sentences (GSV, GSA, GGA, RMC of GPS, GLONASS, Galileo, BeiDou, QZSS, NavIC
// and mixed talkers) into one sky and one position per epoch; docs/live-data.md says how.
// Never fails: a bad sentence is dropped and counted, text between sentences is skipped.
class RXIO_EXPORT CNmeaDecoder {
public:
    using SatelliteInfo = ISatListListener::SatelliteInfo;
    using Position = IPositionListener::Position;

    // Longest sentence taken, "$" to checksum, without CR LF.
    static constexpr qsizetype kMaxSentence = 120;
    // Status codes given to a satellite: used in the solution, or only tracked.
    static constexpr std::uint8_t kStatusUsed = 0;
    static constexpr std::uint8_t kStatusTracked = 6;

    std::function<void(const std::vector<SatelliteInfo>&)> onSky;
    std::function<void(const Position&)> onPosition;

    // A byte stream in any chunking; sentences end at CR or LF and restart at every "$".
    void Feed(QByteArrayView bytes);
    // One sentence, with or without its line end.
    void Decode(QByteArrayView sentence);
    // Hands out the epoch under way (end of input).
    void Flush();
    // Forgets the sentence and the epoch under way (the stream was interrupted); tracking times
    // and counters stay.
    void Reset();

    std::uint64_t Decoded() const { return m_decoded; }
    std::uint64_t Dropped() const { return m_dropped; }
    std::uint64_t SkippedBytes() const { return m_skipped; }

private:
    struct Satellite {
        std::uint16_t key; // constellation << 8 | number within it
        SatelliteInfo info;
        // What a $PPELSAT said, which wins over what the decoder derives.
        std::optional<std::uint8_t> status;
        std::optional<std::uint16_t> tracked;
    };
    struct FirstSeen {
        std::uint16_t key;
        std::int64_t ms;
    };
    using Fields = std::vector<QByteArrayView>;

    bool DecodeGsv(QByteArrayView talker, const Fields& f);
    bool DecodeGsa(QByteArrayView talker, const Fields& f);
    bool DecodeGga(const Fields& f);
    bool DecodeRmc(const Fields& f);
    bool DecodePelsat(const Fields& f);
    // Starts a new epoch when `time` (hhmmss.ss) is not the current one; false when malformed.
    bool AtTime(QByteArrayView time);
    void EndEpoch();
    Satellite& SatelliteFor(std::uint16_t key);

    QByteArray m_line;
    bool m_inSentence = false;
    bool m_overlong = false;
    Fields m_fields;

    std::vector<Satellite> m_sky;
    std::vector<std::uint16_t> m_used;
    std::vector<std::uint16_t> m_groups; // talker and signal of the GSV groups of this epoch
    // Systems whose GSA came before this epoch's first GSV (an untimed stream's epoch order).
    std::vector<int> m_gsaLeading;
    std::vector<FirstSeen> m_firstSeen;
    Position m_position;
    bool m_hasPosition = false;
    bool m_ggaInEpoch = false;
    QDate m_date;
    bool m_timed = false; // the stream carries GGA or RMC times
    std::int64_t m_epochMs = 0;
    std::int64_t m_dayOffsetMs = 0;
    std::int64_t m_untimedEpochs = 0;

    std::uint64_t m_decoded = 0;
    std::uint64_t m_dropped = 0;
    std::uint64_t m_skipped = 0;
};

} // namespace rxio
