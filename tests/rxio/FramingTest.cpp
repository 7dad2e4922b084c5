#include "rxio/Framing.h"

#include <QString>
#include <gtest/gtest.h>
#include <tuple>

namespace {

using rxio::CFrameParser;
using rxio::EFrameKind;

using Parsed = std::tuple<EFrameKind, QByteArray, QByteArray>; // kind, id, payload

struct Seen {
    std::vector<Parsed> frames;
    std::vector<QByteArray> nmea;
};

Seen ParseInChunks(const QByteArray& stream, int chunk, CFrameParser* keep = nullptr) {
    Seen seen;
    CFrameParser local;
    CFrameParser& parser = keep ? *keep : local;
    parser.onFrame = [&](const rxio::Frame& f) {
        seen.frames.emplace_back(f.kind, f.id, f.payload);
    };
    parser.onNmea = [&](const QByteArray& line) {
        seen.nmea.push_back(line);
    };
    for (qsizetype i = 0; i < stream.size(); i += chunk)
        parser.Feed(stream.mid(i, chunk));
    return seen;
}

QByteArray Frame(const char* kind, const QByteArray& id, const QByteArray& payload) {
    const QByteArray body = '%' + id + '%' + payload;
    return QByteArray(kind) + QByteArray::number(body.size(), 16).toUpper().rightJustified(6, '0') +
           body + '\n';
}

TEST(FramingTest, FramesAndSentencesSurviveAnyChunking) {
    const QByteArray table = "Name   Size\n\"a,b\"  {1,{2,3}}\n%$RE000001\n";
    const QByteArray stream = Frame("RE", "7", "115200") + "$GPGGA,1,2,3*00\r\n" +
                              Frame("RE", "8", table) + Frame("ER", "9", "{2,,access denied}") +
                              "$GNGSA,A,3*11\r\n" + Frame("NT", "", "reset");
    for (int chunk : {1, 2, 3, 7, 64, 4096}) {
        SCOPED_TRACE(chunk);
        const Seen seen = ParseInChunks(stream, chunk);
        EXPECT_EQ(seen.frames, (std::vector<Parsed>{{EFrameKind::Reply, "7", "115200"},
                                                    {EFrameKind::Reply, "8", table},
                                                    {EFrameKind::Error, "9", "{2,,access denied}"},
                                                    {EFrameKind::Notice, "", "reset"}}));
        EXPECT_EQ(seen.nmea, (std::vector<QByteArray>{"$GPGGA,1,2,3*00", "$GNGSA,A,3*11"}));
    }
}

TEST(FramingTest, GarbageIsSkippedAndTheStreamRecovers) {
    struct Case {
        const char* name;
        QByteArray junk;
    };
    const Case cases[] = {
        {"binary noise", QByteArray("\x00\xff\x13\x37\x01", 5)},
        {"letters that look like a start", "RRREEENNN"},
        {"header with bad hex", "RE00zz01%1%x\n"},
        {"header with an over-long length", "RE200000%1%x\n"},
        {"header without an id", "RE000004abcd\n"},
        {"id too long", "RE00000C%123456789%x\n"},
        {"frame without its newline", "RE000003%1%x!"},
        {"too short a length", "RE000001%\n"},
        {"stray braces", "}{%%}{"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CFrameParser parser;
        const Seen seen =
            ParseInChunks(c.junk + Frame("RE", "42", "ok") + "$GPRMC*00\r\n", 3, &parser);
        EXPECT_EQ(seen.frames, (std::vector<Parsed>{{EFrameKind::Reply, "42", "ok"}}));
        EXPECT_EQ(seen.nmea.size(), 1u);
        EXPECT_GT(parser.GarbageBytes(), 0u);
        EXPECT_EQ(parser.Pending(), 0u);
    }
}

TEST(FramingTest, OverLongSentencesAreDroppedWhole) {
    const QByteArray longLine = '$' + QByteArray(300, 'X') + "\r\n";
    for (int chunk : {1, 50, 1000}) {
        CFrameParser parser;
        const Seen seen =
            ParseInChunks(longLine + "$GPGGA*00\r\n" + Frame("RE", "1", "5"), chunk, &parser);
        EXPECT_EQ(seen.nmea, std::vector<QByteArray>{"$GPGGA*00"}) << chunk;
        EXPECT_EQ(seen.frames.size(), 1u);
        EXPECT_GE(parser.GarbageBytes(), 300u);
    }
}

TEST(FramingTest, AFrameCutShortWaitsAndResetForgetsIt) {
    CFrameParser parser;
    const QByteArray whole = Frame("RE", "3", "{a,b}");
    EXPECT_TRUE(ParseInChunks(whole.left(10), 64, &parser).frames.empty());
    EXPECT_EQ(parser.Pending(), 10u);
    parser.Reset();
    EXPECT_EQ(ParseInChunks(whole, 64, &parser).frames,
              (std::vector<Parsed>{{EFrameKind::Reply, "3", "{a,b}"}}));
}

TEST(FramingTest, CommandsAreEncodedOnOneLine) {
    EXPECT_EQ(rxio::EncodeCommand("12", QStringLiteral("print,/par/pos/elm")),
              "%12%print,/par/pos/elm\r\n");
    EXPECT_EQ(rxio::EncodeCommand("1", QString::fromUtf8("set,/par/x,\"Hügel\"")),
              QByteArray("%1%set,/par/x,\"H\xc3\xbcgel\"\r\n"));
}

} // namespace
