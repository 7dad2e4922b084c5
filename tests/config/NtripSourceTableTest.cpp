#include "config/NtripSourceTable.h"

#include "SimulatedReceiver.h"
#include "SourceTables.h"
#include "config/Ntrip_Client_SelectMountpointDlg.h"
#include "lib/Common.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTest>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace ntrip;

struct TableCase {
    const char* name;
    QString text;
    std::size_t streams, casters, networks, skipped;
    bool complete, truncated;
};

TEST(NtripSourceTable, SplitsRecordsAndSkipsWhatIsNone) {
    const QString huge(kMaxTableChars + 1, QLatin1Char('\n'));
    QString many;
    for (std::size_t i = 0; i <= kMaxRecords; ++i)
        many += QStringLiteral("NET;N\n");
    const TableCase cases[] = {
        {"records", "CAS;c;2101\r\nNET;n\r\nSTR;A\r\nSTR;B\r\nENDSOURCETABLE\r\nSTR;after\r\n", 2,
         1, 1, 0, true, false},
        {"response head",
         "SOURCETABLE 200 OK\r\nServer: x\r\nSTR;head\r\n\r\nSTR;A\nENDSOURCETABLE", 1, 0, 0, 0,
         true, false},
        {"head without body", "HTTP/1.1 200 OK\r\nContent-Type: gnss/sourcetable\r\n", 0, 0, 0, 1,
         false, false},
        {"status line alone", "SOURCETABLE 200 OK\r\nSTR;A\r\nENDSOURCETABLE\r\n", 1, 0, 0, 0, true,
         false},
        {"never ends", "STR;A\nSTR;B", 2, 0, 0, 0, false, false},
        {"garbage", "STR\nSTRA;x\n;;;\nSTR;;no mount point\nSTR;  \n\x01\x02\nSTR;A\n", 1, 0, 0, 6,
         false, false},
        {"overlong line", "STR;" + QString(kMaxLineChars, QLatin1Char('x')) + "\nSTR;A\n", 1, 0, 0,
         1, false, false},
        {"beyond the characters", huge, 0, 0, 0, 0, false, true},
        {"beyond the records", many, 0, 0, kMaxRecords, 0, false, true},
        {"generated, malformed", rxsim::MakeSourceTable(100, true), 100 + 2 * 3, 1, 1, 2 * 3, true,
         false},
    };
    for (const TableCase& c : cases) {
        SCOPED_TRACE(c.name);
        const SourceTable table = ParseSourceTable(c.text);
        EXPECT_EQ(table.streams.size(), c.streams);
        EXPECT_EQ(table.casters.size(), c.casters);
        EXPECT_EQ(table.networks.size(), c.networks);
        EXPECT_EQ(table.skippedLines, c.skipped);
        EXPECT_EQ(table.complete, c.complete);
        EXPECT_EQ(table.truncated, c.truncated);
    }
}

TEST(NtripSourceTable, ReadsTheFieldsOfARecord) {
    const SourceTable table = ParseSourceTable(QString::fromUtf8(
        "STR;BREM00;Bremen;RTCM 3.2;1004(1),1006(10);2;GPS+GLO;EUREF;DEU;53.08;351.39;1;1;"
        "NetR;none;B;Y;9600;\"misc; \"\"quoted\"\"\";and;more\n"
        "STR;\"MP;1\";\xC3\xA4rhus;RTCM 2.3\n"
        "STR;Odd;x;x;x;7;x;x;x;north;-190;x;9;x;x;x;x;-5\n"
        "CAS;c.example.net;99999;id;op;1;DEU;52.5;13.4;f.example.net;2102;m\n"
        "NET;PELLNET;op;B;N;w1;w2;w3\n"));
    ASSERT_EQ(table.streams.size(), 3u);
    const Stream& s = table.streams[0];
    EXPECT_EQ(s.mountpoint, QStringLiteral("BREM00"));
    EXPECT_EQ(s.format, QStringLiteral("RTCM 3.2"));
    EXPECT_EQ(s.carrier, 2);
    EXPECT_DOUBLE_EQ(s.latitude, 53.08);
    EXPECT_NEAR(s.longitude, -8.61, 1e-9); // east from 0 to 360
    EXPECT_TRUE(s.nmea);
    EXPECT_EQ(s.solution, 1);
    EXPECT_TRUE(s.fee);
    EXPECT_EQ(s.bitrate, 9600);
    EXPECT_EQ(s.misc, QStringLiteral("misc; \"quoted\";and;more"));
    // A quoted semicolon, a short record, a letter beyond ASCII.
    EXPECT_EQ(table.streams[1].mountpoint, QStringLiteral("MP;1"));
    EXPECT_EQ(table.streams[1].identifier, QString::fromUtf8("\xC3\xA4rhus"));
    EXPECT_EQ(table.streams[1].carrier, -1);
    EXPECT_FALSE(table.streams[1].HasPosition());
    // Values out of their ranges read as unknown.
    const Stream& odd = table.streams[2];
    EXPECT_EQ(odd.carrier, -1);
    EXPECT_EQ(odd.solution, -1);
    EXPECT_EQ(odd.bitrate, -1);
    EXPECT_TRUE(std::isnan(odd.latitude) && std::isnan(odd.longitude));
    ASSERT_EQ(table.casters.size(), 1u);
    EXPECT_EQ(table.casters[0].port, -1);
    EXPECT_EQ(table.casters[0].fallbackPort, 2102);
    ASSERT_EQ(table.networks.size(), 1u);
    EXPECT_EQ(table.networks[0].webRegistration, QStringLiteral("w3"));
}

TEST(NtripSourceTable, FormatsSolutionsDistancesAndFilters) {
    const struct {
        const char* format;
        bool rtcm2, rtcm3;
    } formats[] = {
        {"RTCM 2.3", true, false}, {"RTCM2", true, false},    {"rtcm 3.2", false, true},
        {"RTCM3", false, true},    {"RTCM_3.1", false, true}, {"RTCM 32", false, false},
        {"CMR+", false, false},    {"", false, false},
    };
    for (const auto& f : formats) {
        EXPECT_EQ(IsRtcm2(QString::fromLatin1(f.format)), f.rtcm2) << f.format;
        EXPECT_EQ(IsRtcm3(QString::fromLatin1(f.format)), f.rtcm3) << f.format;
    }
    EXPECT_EQ(SolutionText(0), QStringLiteral("Single Base"));
    EXPECT_EQ(SolutionText(1), QStringLiteral("Network"));
    EXPECT_EQ(CarrierText(2), QStringLiteral("L1+L2"));
    EXPECT_TRUE(CarrierText(0).isEmpty());

    EXPECT_NEAR(DistanceKm(0, 0, 0, 1), 111.195, 0.01);
    EXPECT_NEAR(DistanceKm(53.08, 8.80, 45.76, 4.84), 866.0, 5.0); // Bremen to Lyon
    EXPECT_NEAR(DistanceKm(0, 179.5, 0, -179.5), 111.195, 0.01);
    EXPECT_TRUE(std::isnan(DistanceKm(kUnknownCoordinate, 0, 0, 0)));

    Stream stream;
    stream.mountpoint = QStringLiteral("BREM00");
    stream.identifier = QStringLiteral("Bremen");
    stream.format = QStringLiteral("RTCM 3.2");
    stream.country = QStringLiteral("DEU");
    for (const char* filter : {"", "brem", "  rtcm   deu ", "3.2"})
        EXPECT_TRUE(Matches(stream, QString::fromLatin1(filter))) << filter;
    for (const char* filter : {"lyon", "brem fra", "RTCM 2.3"})
        EXPECT_FALSE(Matches(stream, QString::fromLatin1(filter))) << filter;
}

// The table comes whole through the receiver, as it fetched it from the caster it is pointed to.
TEST(NtripSourceTable, TheReceiverHandsOnItsCastersTable) {
    const struct {
        const char* host;
        std::size_t streams, skipped;
    } casters[] = {{"caster.example.net", 3, 0},
                   {"large.example.net", 5000, 0},
                   {"broken.example.net", 63, 3}};
    pell::test::SimulatedReceiver receiver(QStringLiteral("ostrel-q"));
    const CVexReceiverMate mate(receiver.Receiver());
    for (const auto& caster : casters) {
        SCOPED_TRACE(caster.host);
        mate.Run(pell::vexcmd::SetText(QStringLiteral("ntrip/caster/addr"),
                                       QString::fromLatin1(caster.host)));
        const SourceTable table = ReadSourceTable(receiver.Receiver());
        EXPECT_EQ(table.streams.size(), caster.streams);
        EXPECT_EQ(table.skippedLines, caster.skipped);
        EXPECT_TRUE(table.complete);
    }
}

// The dialog lists the table the receiver has, narrows it as the user types, and sorts it by
// distance once the receiver has a fix.
TEST(NtripSourceTable, TheDialogListsFiltersAndSortsByDistance) {
    pell::test::SimulatedReceiver receiver;
    const CVexReceiverMate mate(receiver.Receiver());
    mate.Run(pell::vexcmd::SetText(QStringLiteral("ntrip/caster/addr"),
                                   QStringLiteral("large.example.net")));
    CPellWindow<CNtrip_Client_SelectMountpointDlg> dialog(receiver.Receiver(),
                                                          QStringLiteral("Ipoh0006"), nullptr);
    dialog.show();
    const QAbstractItemModel& list = dialog.List();
    EXPECT_EQ(list.rowCount(), 5000);
    ASSERT_TRUE(dialog.Selected());
    EXPECT_EQ(dialog.Selected()->mountpoint, QStringLiteral("Ipoh0006"));

    enum { Identifier = 1, Distance = 2, Format = 3 };
    dialog.Filter().setText(QStringLiteral("penang rtcm 3.2"));
    EXPECT_GT(list.rowCount(), 0);
    EXPECT_LT(list.rowCount(), 5000 / 12);
    for (int row = 0; row < list.rowCount(); ++row) {
        EXPECT_EQ(list.index(row, Identifier).data().toString(), QStringLiteral("Penang"));
        EXPECT_EQ(list.index(row, Format).data().toString(), QStringLiteral("RTCM 3.2"));
    }

    dialog.Filter().clear();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return !list.index(0, Distance).data().toString().isEmpty(); }, 5000));
    for (int row = 1; row < 100; ++row)
        EXPECT_LE(list.index(row - 1, Distance).data(Qt::UserRole).toDouble(),
                  list.index(row, Distance).data(Qt::UserRole).toDouble());
}

} // namespace
