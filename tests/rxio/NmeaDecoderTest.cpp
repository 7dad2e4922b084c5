#include "rxio/NmeaDecoder.h"

#include "SimulatedReceiver.h"
#include "rxio/Pipe.h"
#include "rxio/ReceiverConnection.h"

#include <QBuffer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>
#include <map>
#include <numbers>

namespace {

using rxio::CNmeaDecoder;
using Sat = rxio::ISatListListener::SatelliteInfo;
using Sky = std::vector<Sat>;

struct Decoded {
    std::vector<Sky> skies;
    std::vector<CNmeaDecoder::Position> positions;
};

Decoded DecodeAll(const QByteArray& stream, CNmeaDecoder& decoder) {
    Decoded out;
    decoder.onSky = [&](const Sky& sky) {
        out.skies.push_back(sky);
    };
    decoder.onPosition = [&](const CNmeaDecoder::Position& p) {
        out.positions.push_back(p);
    };
    decoder.Feed(stream);
    decoder.Flush();
    return out;
}

// "USI:el/az:slot=snr,...:SS" for each satellite of a sky, the shape the cases below expect.
QString Describe(const Sky& sky) {
    QStringList out;
    for (const Sat& s : sky) {
        QStringList snr;
        for (const auto& [slot, value] : s.SNR)
            snr << QStringLiteral("%1=%2").arg(slot).arg(value);
        out << QStringLiteral("%1:%2/%3:%4:%5")
                   .arg(s.USI)
                   .arg(s.Elevation)
                   .arg(s.Azimuth)
                   .arg(snr.join(QLatin1Char(',')))
                   .arg(s.SS);
    }
    return out.join(QLatin1Char(' '));
}

QByteArray WithSum(const QByteArray& body) {
    char sum = 0;
    for (const char c : body)
        sum ^= c;
    return '$' + body + '*' +
           QByteArray::number(static_cast<uchar>(sum), 16).toUpper().rightJustified(2, '0') +
           "\r\n";
}

TEST(NmeaDecoderTest, NumbersSignalsAndBrokenInputComeOutAsDocumented) {
    const QByteArray gga =
        WithSum("GPGGA,120000.00,4800.000,N,01100.000,E,1,05,1.0,500.0,M,47.0,M,,");
    const struct {
        const char* what;
        QByteArray stream;
        const char* sky; // the one sky expected
        std::uint64_t dropped;
    } cases[] = {
        {"every talker's numbering, signal ids to slots, used from GSA",
         WithSum("GPGSV,1,1,03,05,40,100,45,40,30,200,38,194,20,300,33") +
             WithSum("GPGSV,1,1,01,05,40,100,41,5") + WithSum("GLGSV,1,1,02,65,10,010,30,89,,,31") +
             WithSum("GLGSV,1,1,01,65,,,25,3") + WithSum("GAGSV,1,1,01,07,70,070,44") +
             WithSum("GAGSV,1,1,01,107,,,40,1") + WithSum("GBGSV,1,1,01,19,15,150,35,5") +
             WithSum("BDGSV,1,1,01,219,15,150,36") + WithSum("GQGSV,1,1,01,02,,,20,9") +
             WithSum("GIGSV,1,1,01,03,05,005,25,1") +
             WithSum("GNGSA,A,3,05,,,,,,,,,,,,1.0,1.0,1.0,1") +
             WithSum("GNGSA,A,3,65,,,,,,,,,,,,1.0,1.0,1.0,2") + gga,
         "5:40/100:0=45,3=41:0 46:10/10:0=30,3=25:0 52:127/65535:0=31:6 77:70/70:0=44,4=40:6 "
         "221:15/150:0=36,5=35:6 127:30/200:0=38:6 194:20/300:0=33,7=20:6 178:5/5:0=25:6",
         0},
        {"bad checksum, over-long line, cut sentence, text, $$ and a short group",
         "junk\r\n$$" +
             WithSum("GPGSV,2,1,05,01,10,010,11,02,20,020,22,03,30,030,33,04,40,040,44") +
             "$GPGSV,1,1,01,09,10,010,11*00\r\n$GPGSV,1,1,01,08,10,010,11,1" +
             WithSum("GPGSV,1,1,01,07,10,010,11," + QByteArray(120, '0')) + gga,
         "1:10/10:0=11:6 2:20/20:0=22:6 3:30/30:0=33:6 4:40/40:0=44:6", 3},
        {"a number the record cannot hold, a latitude past the pole, a GSA of 16 with its system",
         WithSum("GBGSV,1,1,02,19,15,150,35,38,10,100,30") + WithSum("GPGSV,1,1,01,05,40,100,45") +
             WithSum("GNGSA,A,3,20,19,18,17,16,15,14,13,12,11,10,09,08,07,06,05,1.0,1.0,1.0,1") +
             WithSum("GPGGA,120000.00,9959.999,N,01100.000,E,1,05,1.0,500.0,M,47.0,M,,") + gga,
         "5:40/100:0=45:0 221:15/150:0=35:6", 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        CNmeaDecoder decoder;
        const Decoded d = DecodeAll(c.stream, decoder);
        ASSERT_EQ(d.skies.size(), 1u);
        EXPECT_EQ(Describe(d.skies[0]).toStdString(), c.sky);
        EXPECT_EQ(decoder.Dropped(), c.dropped);
    }
}

TEST(NmeaDecoderTest, EpochsCarryPositionSolutionTimeAndTrackingTime) {
    QByteArray stream;
    for (const char* t : {"235959.00", "000000.00", "000001.00"})
        stream +=
            WithSum(QByteArray("GNRMC,") + t + ",A,4552.65403,S,17030.00668,E,0.0,,311219,,,R,V") +
            WithSum(QByteArray("GNGGA,") + t +
                    ",4552.65403,S,17030.00668,E,4,12,0.64,14.2,M,1.8,M,,") +
            WithSum("GPGSV,1,1,01,10,24,284,34");
    stream += WithSum("GNRMC,000002.00,V,,,,,,,010120,,,N,V") +
              WithSum("GNRMC,235960.00,V,,,,,,,311216,,,N,V");
    CNmeaDecoder decoder;
    const Decoded d = DecodeAll(stream, decoder);
    ASSERT_EQ(d.positions.size(), 5u);
    ASSERT_EQ(d.skies.size(), 3u);
    EXPECT_EQ(d.skies[2][0].TC, 2);
    const CNmeaDecoder::Position& fix = d.positions[1];
    EXPECT_EQ(fix.solution, rxio::ESolutionType::RtkFixed);
    EXPECT_NEAR(fix.geo.lat * 180 / std::numbers::pi, -(45 + 52.65403 / 60), 1e-9);
    EXPECT_NEAR(fix.geo.lon * 180 / std::numbers::pi, 170 + 30.00668 / 60, 1e-9);
    EXPECT_DOUBLE_EQ(fix.geo.height, 16.0);
    EXPECT_EQ(fix.satellitesUsed, 12);
    EXPECT_EQ(fix.utc, QDateTime(QDate(2019, 12, 31), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(d.positions[3].solution, rxio::ESolutionType::None);
    EXPECT_EQ(d.positions[3].utc, QDateTime(QDate(2020, 1, 1), QTime(0, 0, 2), Qt::UTC));
    // A leap second is shown as the next day's first moment, not as the same day's.
    EXPECT_EQ(d.positions[4].utc, QDateTime(QDate(2017, 1, 1), QTime(0, 0), Qt::UTC));
}

// Our sentence over the GSV satellites: identity, what wins, and what is refused.
TEST(NmeaDecoderTest, OurSentenceSaysWhatNmeaCannot) {
    const QByteArray gsv = WithSum("GPGSV,1,1,01,07,40,100,45") +
                           WithSum("GLGSV,1,1,01,65,10,010,30") +
                           WithSum("GPGSA,A,3,07,,,,,,,,,,,,1.0,1.0,1.0");
    const QByteArray gga =
        WithSum("GPGGA,120000.00,4800.000,N,01100.000,E,1,05,1.0,500.0,M,47.0,M,,");
    const struct {
        const char* what;
        QByteArray stream;
        const char* sky; // USI/NN:el/az:snr:SS:TC:scintillation:mark
        std::uint64_t dropped;
    } cases[] = {
        {"merged by identity, GLONASS by slot and by channel alone",
         gsv + WithSum("PPELSAT,7,,6,1834,1,5,,,4,44") + WithSum("PPELSAT,39,1,0,20,0,1,,,3,28") +
             WithSum("PPELSAT,40,,6,,0,0,,,0,38,3,33") + WithSum("PPELSAT,71,,0,5,0,0,-2,359") +
             gga,
         "7/255:40/100:0=45,4=44:6:1834:1:5 39/1:10/10:0=30,3=28:0:20:0:1 "
         "40/255:127/65535:0=38,3=33:6:0:0:0 71/255:-2/359::0:5:0:0",
         0},
        {"out of range or malformed, each dropped whole",
         gsv + WithSum("PPELSAT,0,,0,0,0,0,,") + WithSum("PPELSAT,255,,0,0,0,0,,") +
             WithSum("PPELSAT,7,3,0,0,0,0,,") + WithSum("PPELSAT,7,,0,0,0,0,,,0") +
             WithSum("PPELSAT,7,,0,0,0,0,91,") + WithSum("PPELSAT,7,,0,0,0,0,,,8,40") +
             WithSum("PPELSAT,7,,0,0,0,0,,,0,100") + WithSum("PPELSAT,7,,255,0,0,0,,") +
             WithSum("PPELSAT,7,,0,0,2,0,,") + WithSum("PPELSAT,7,,0,0,0,0,-,") +
             WithSum("PPELSAT,39,33,0,0,0,0,,") + WithSum("PPELSAT,7,,0,0,0") + gga,
         "7/255:40/100:0=45:0:0:0:0 46/1:10/10:0=30:6:0:0:0", 12},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        CNmeaDecoder decoder;
        const Decoded d = DecodeAll(c.stream, decoder);
        ASSERT_EQ(d.skies.size(), 1u);
        QStringList got;
        for (const Sat& s : d.skies[0]) {
            QStringList snr;
            for (const auto& [slot, value] : s.SNR)
                snr << QStringLiteral("%1=%2").arg(slot).arg(value);
            got << QStringLiteral("%1/%2:%3/%4:%5:%6:%7:%8:%9")
                       .arg(s.USI)
                       .arg(s.NN)
                       .arg(s.Elevation)
                       .arg(s.Azimuth)
                       .arg(snr.join(QLatin1Char(',')))
                       .arg(s.SS)
                       .arg(s.TC)
                       .arg(s.Scintillation)
                       .arg(s.ElevationMark);
        }
        EXPECT_EQ(got.join(QLatin1Char(' ')).toStdString(), c.sky);
        EXPECT_EQ(decoder.Dropped(), c.dropped);
    }
}

// Without GGA and RMC an epoch is only known by its order: a GSA that leads the GSV groups
// belongs to the epoch after them, one that follows them to the epoch before.
TEST(NmeaDecoderTest, UntimedStreamsKeepTheirGsaWithTheirEpoch) {
    const QByteArray sky = WithSum("GPGSV,1,1,02,05,40,100,45,06,30,200,38");
    const QByteArray used5 = WithSum("GPGSA,A,3,05,,,,,,,,,,,,1.0,1.0,1.0");
    const QByteArray used6 = WithSum("GPGSA,A,3,06,,,,,,,,,,,,1.0,1.0,1.0");
    for (const QByteArray& stream : {used5 + sky + used6 + sky, sky + used5 + sky + used6}) {
        CNmeaDecoder decoder;
        const Decoded d = DecodeAll(stream, decoder);
        ASSERT_EQ(d.skies.size(), 2u);
        EXPECT_EQ(Describe(d.skies[0]).toStdString(), "5:40/100:0=45:0 6:30/200:0=38:6");
        EXPECT_EQ(Describe(d.skies[1]).toStdString(), "5:40/100:0=45:6 6:30/200:0=38:0");
    }
}

// The well-known decoder's satellite (gnssid, svid) and signal (gnssid, sigid) in our terms.
std::pair<int, int> Ours(const Sat& s) {
    const int usi = s.USI;
    if (usi <= 37)
        return {0, usi};
    if (usi <= 70)
        return {6, s.NN};
    if (usi <= 106)
        return {2, usi - 70};
    if (usi >= 120 && usi <= 158)
        return {1, usi};
    if (usi >= 193 && usi <= 202)
        return {5, usi - 192};
    return {3, usi - 202};
}

// The reference files Galileo's E1 and E5a under one signal id, whichever came last: its
// Galileo signal strengths say nothing.
constexpr int kGalileo = 2;
constexpr int kBeiDou = 3;

int SlotOf(int gnssid, int sigid) {
    static const std::map<std::pair<int, int>, int> kSlots = {
        {{0, 0}, 0}, {{0, 3}, 3}, {{0, 4}, 3}, {{0, 6}, 4}, {{0, 7}, 4}, {{1, 0}, 0}, {{2, 0}, 0},
        {{2, 1}, 0}, {{2, 3}, 4}, {{2, 4}, 4}, {{2, 5}, 5}, {{2, 6}, 5}, {{3, 0}, 0}, {{3, 1}, 0},
        {{3, 2}, 3}, {{3, 3}, 3}, {{3, 5}, 1}, {{3, 7}, 5}, {{5, 0}, 0}, {{5, 4}, 3}, {{5, 5}, 3},
        {{5, 8}, 4}, {{5, 9}, 4}, {{6, 0}, 0}, {{6, 2}, 3}};
    const auto it = kSlots.find({gnssid, sigid});
    return it == kSlots.end() ? -100 - sigid : it->second;
}

// One satellite as "az/el snr-by-slot used?", from either side.
using View = std::map<std::pair<int, int>, QString>;

View FromDecoder(const Sky& sky, bool withUsed) {
    View out;
    for (const Sat& s : sky) {
        QStringList snr;
        for (const auto& [slot, value] : s.SNR)
            if (Ours(s).first != kGalileo)
                snr << QStringLiteral("%1=%2").arg(slot).arg(value);
        out[Ours(s)] = QStringLiteral("%1/%2 %3%4")
                           .arg(s.Azimuth == 0xFFFF ? -1 : s.Azimuth)
                           .arg(s.Elevation == 127 ? -99 : s.Elevation)
                           .arg(snr.join(QLatin1Char(',')))
                           .arg(withUsed ? (s.SS == CNmeaDecoder::kStatusUsed ? " used" : "") : "");
    }
    return out;
}

View FromReport(const QJsonArray& satellites, bool withUsed) {
    struct Merged {
        int az = -1;
        int el = -99;
        std::map<int, int> snr;
        bool used = false;
    };
    std::map<std::pair<int, int>, Merged> merged;
    for (const QJsonValue& v : satellites) {
        const QJsonObject o = v.toObject();
        // The satellite record numbers BeiDou 1..37 only: later satellites are not shown.
        if (o[QLatin1String("gnssid")].toInt() == kBeiDou && o[QLatin1String("svid")].toInt() > 37)
            continue;
        auto& [az, el, snr, used] =
            merged[{o[QLatin1String("gnssid")].toInt(), o[QLatin1String("svid")].toInt()}];
        if (o.contains(QLatin1String("az")))
            az = o[QLatin1String("az")].toInt();
        if (o.contains(QLatin1String("el")))
            el = o[QLatin1String("el")].toInt();
        if (o.contains(QLatin1String("ss")) && o[QLatin1String("gnssid")].toInt() != kGalileo)
            snr[SlotOf(o[QLatin1String("gnssid")].toInt(), o[QLatin1String("sigid")].toInt())] =
                o[QLatin1String("ss")].toInt();
        used = used || o[QLatin1String("used")].toBool();
    }
    View out;
    for (const auto& [key, value] : merged) {
        const auto& [az, el, snr, used] = value;
        QStringList s;
        for (const auto& [slot, ss] : snr)
            s << QStringLiteral("%1=%2").arg(slot).arg(ss);
        out[key] = QStringLiteral("%1/%2 %3%4")
                       .arg(az)
                       .arg(el)
                       .arg(s.join(QLatin1Char(',')))
                       .arg(withUsed && used ? " used" : "");
    }
    return out;
}

QString Diff(const View& got, const View& want) {
    QStringList out;
    for (const auto& [key, value] : want)
        if (!got.contains(key) || got.at(key) != value)
            out << QStringLiteral("%1:%2 want %3 got %4")
                       .arg(key.first)
                       .arg(key.second)
                       .arg(value, got.contains(key) ? got.at(key) : QStringLiteral("none"));
    for (const auto& [key, value] : got)
        if (!want.contains(key))
            out << QStringLiteral("%1:%2 extra %3").arg(key.first).arg(key.second).arg(value);
    return out.join(QLatin1String("; "));
}

// Each capture, epoch by epoch, against the last sky the well-known decoder reported in it.
TEST(NmeaDecoderTest, CapturesDecodeToTheSkiesAWellKnownDecoderReads) {
    for (const char* name : {"quectelLC79D.log", "ublox-zed-f9p-nmea.log", "unicore-um621.log"}) {
        SCOPED_TRACE(name);
        QFile log(QStringLiteral(TEST_DATA_DIR "/nmea/") + QLatin1String(name));
        QFile check(log.fileName() + QLatin1String(".chk"));
        ASSERT_TRUE(log.open(QIODevice::ReadOnly) && check.open(QIODevice::ReadOnly));

        // Per input line: the last sky report after it, and whether a GSA came before it.
        struct Report {
            qsizetype line;
            QJsonArray satellites;
        };
        std::vector<Report> reports;
        qsizetype lines = 0;
        for (const QByteArray& l : check.readAll().split('\n')) {
            if (!l.startsWith('{')) {
                lines += l.startsWith('$') ? 1 : 0;
                continue;
            }
            const QJsonObject o = QJsonDocument::fromJson(l).object();
            if (o[QLatin1String("class")] == QLatin1String("SKY") &&
                o.contains(QLatin1String("satellites")))
                reports.push_back({lines - 1, o[QLatin1String("satellites")].toArray()});
        }

        QBuffer device;
        device.setData(log.readAll());
        device.open(QIODevice::ReadOnly);
        CNmeaDecoder decoder;
        qsizetype line = 0;
        qsizetype epochStart = 0;
        qsizetype lastGsa = -1;
        std::uint64_t overlong = 0;
        int compared = 0;
        decoder.onSky = [&](const Sky& sky) {
            const Report* want = nullptr;
            for (const Report& r : reports)
                if (r.line >= epochStart && r.line < line)
                    want = &r;
            if (want) {
                const bool withUsed = lastGsa >= epochStart && lastGsa < want->line;
                SCOPED_TRACE(QStringLiteral("epoch from line %1").arg(epochStart).toStdString());
                EXPECT_EQ(Diff(FromDecoder(sky, withUsed), FromReport(want->satellites, withUsed))
                              .toStdString(),
                          "");
                ++compared;
            }
            epochStart = line;
        };
        while (!device.atEnd()) {
            const QByteArray l = device.readLine();
            if (!l.startsWith('$'))
                continue;
            if (l.mid(3, 3) == "GSA")
                lastGsa = line;
            if (l.trimmed().size() > CNmeaDecoder::kMaxSentence)
                ++overlong; // proprietary sentences of one receiver
            decoder.Feed(l);
            ++line;
        }
        decoder.Flush();
        EXPECT_GT(compared, 10);
        EXPECT_EQ(decoder.Dropped(), overlong);
    }
}

// What a connection hears on its link reaches every listener still alive.
TEST(NmeaDecoderTest, AConnectionTellsItsListeners) {
    struct Listener final : rxio::ISatListListener, rxio::IPositionListener {
        void OnSatellites(const std::vector<SatelliteInfo>& sky) override { skies += sky.size(); }
        void OnPosition(const Position&) override { ++positions; }
        std::size_t skies = 0;
        int positions = 0;
    };
    auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
    auto connection = rxio::CReceiverConnection::Create(
        rxio::OpenInProcessLink(std::move(mine), QStringLiteral("nmea")).link);
    auto kept = std::make_shared<Listener>();
    auto gone = std::make_shared<Listener>();
    connection->RegisterSatListListener(kept);
    connection->RegisterPositionListener(kept);
    connection->RegisterSatListListener(gone);
    gone.reset();
    theirs->write(WithSum("GPGGA,120000.00,4800.000,N,01100.000,E,1,05,1.0,500.0,M,47.0,M,,") +
                  WithSum("GPGSV,1,1,02,05,40,100,45,06,30,200,38") +
                  WithSum("GPGGA,120001.00,4800.000,N,01100.000,E,1,05,1.0,500.0,M,47.0,M,,"));
    pell::test::Spin(50);
    EXPECT_EQ(kept->skies, 2u);
    EXPECT_EQ(kept->positions, 1);
}

} // namespace
