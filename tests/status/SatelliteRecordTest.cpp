#include "TestSupport.h"
#include "lib/Drawing.h"
#include "lib/PellLib.h"
#include "status/SatelliteInfoEx.h"

#include <QLocale>
#include <QStringList>
#include <gtest/gtest.h>

namespace {

using Sat = CSatelliteInfoEx;
using Column = Sat::EColumn;

Sat Make(std::uint8_t usi, std::uint8_t nn = 255, std::map<int, std::uint8_t> snr = {}) {
    Sat::SatelliteInfo info;
    info.USI = usi;
    info.NN = nn;
    info.SNR = std::move(snr);
    return Sat(info);
}

TEST(SatelliteRecord, ConstellationNumberAndChannelFromUsi) {
    struct Case {
        std::uint8_t usi, nn;
        Sat::EConstellation constellation;
        const char* svn;
        const char* fcn;
    };
    const Case cases[] = {
        {0, 255, Sat::Unused, "?0", ""},       {255, 255, Sat::Unused, "???", ""},
        {1, 255, Sat::GPS, "G1", ""},          {37, 255, Sat::GPS, "G37", ""},
        {38, 5, Sat::GLONASS, "R5", "-7"},     {70, 24, Sat::GLONASS, "R24", "25"},
        {45, 255, Sat::GLONASS, "R??", "0"},   {71, 255, Sat::Galileo, "E1", ""},
        {106, 255, Sat::Galileo, "E36", ""},   {107, 255, Sat::Reserved, "?107", ""},
        {119, 255, Sat::Reserved, "?119", ""}, {120, 255, Sat::SBAS, "S120", ""},
        {158, 255, Sat::SBAS, "S158", ""},     {159, 255, Sat::Reserved, "?159", ""},
        {175, 255, Sat::Reserved, "?175", ""}, {176, 255, Sat::IRNSS, "I1", ""},
        {182, 255, Sat::IRNSS, "I7", ""},      {183, 255, Sat::SAIF, "S183", ""},
        {192, 255, Sat::SAIF, "S192", ""},     {193, 255, Sat::QZSS, "J1", ""},
        {202, 255, Sat::QZSS, "J10", ""},      {203, 255, Sat::BeiDou, "C1", ""},
        {239, 255, Sat::BeiDou, "C37", ""},    {240, 255, Sat::Reserved, "?240", ""},
        {254, 255, Sat::Reserved, "?254", ""},
    };
    for (const auto& c : cases) {
        const Sat s = Make(c.usi, c.nn);
        EXPECT_EQ(s.Constellation, c.constellation) << int(c.usi);
        EXPECT_EQ(s.GetSVN(), QLatin1String(c.svn)) << int(c.usi);
        EXPECT_EQ(s.GetFCN(), QLatin1String(c.fcn)) << int(c.usi);
    }
    // An empty constellation row has no number whatever its constellation.
    EXPECT_EQ(Sat(Sat::Galileo).GetSVN(), QStringLiteral("E??"));
    EXPECT_EQ(Sat(Sat::Galileo).Constellation, Sat::Galileo);
}

TEST(SatelliteRecord, FieldTexts) {
    struct Case {
        std::int8_t elevation;
        std::uint32_t mark;
        std::uint16_t azimuth, tc;
        std::uint8_t ss, nn;
        const char *el, *az, *tcText, *ssText, *nnText;
    };
    const Case cases[] = {
        {90, 0, 360, 59, 0, 3, "90", "360", ":59", "0", "3"},
        {91, 1, 361, 60, 255, 255, "??", "??", "1", "??", ""},
        {-91, 0, 0xFFFF, 119, 6, 0, "??", "??", "1", "6", "0"},
        {-90, 1, 0, 0, 254, 254, "-90^", "0", ":0", "254", "254"},
        {12, 2, 7, 179, 1, 1, "12+", "7", "2", "1", "1"},
        {12, 3, 7, 65535, 1, 1, "12-", "7", "1092", "1", "1"},
        {12, 4, 7, 45, 1, 1, "12^", "7", ":45", "1", "1"},
        {12, 5, 7, 45, 1, 1, "12v", "7", ":45", "1", "1"},
        {12, 6, 7, 45, 1, 1, "12 ", "7", ":45", "1", "1"},
        {127, 1, 7, 45, 1, 1, "??", "7", ":45", "1", "1"},
    };
    for (const auto& c : cases) {
        Sat s(Sat::GPS);
        s.Elevation = c.elevation;
        s.ElevationMark = c.mark;
        s.Azimuth = c.azimuth;
        s.TC = c.tc;
        s.SS = c.ss;
        s.NN = c.nn;
        EXPECT_EQ(s.GetElevation(), QLatin1String(c.el)) << int(c.elevation) << "/" << c.mark;
        EXPECT_EQ(s.GetAzimuth(), QLatin1String(c.az)) << c.azimuth;
        EXPECT_EQ(s.GetTC(), QLatin1String(c.tcText)) << c.tc;
        EXPECT_EQ(s.GetSS(), QLatin1String(c.ssText));
        EXPECT_EQ(s.GetNN(), QLatin1String(c.nnText));
    }
    EXPECT_EQ(Make(38).GetUSI(), QStringLiteral("38"));
}

// Slots 0..7 hold 10..17, so each signal column shows which slot it reads.
TEST(SatelliteRecord, SignalColumnsReadTheirConstellationsSlots) {
    const std::map<int, std::uint8_t> all{{0, 10}, {1, 11}, {2, 12}, {3, 13},
                                          {4, 14}, {5, 15}, {6, 16}, {7, 17}};
    const std::pair<std::uint8_t, const char*> cases[] = {
        {5, "10 13 11 12 14"},   // GPS
        {40, "10 13 11 12 14"},  // GLONASS
        {80, "10 14 15 16 17"},  // Galileo
        {210, "10 11 13 15 14"}, // BeiDou
        {130, "10 15 - - -"},    // SBAS
        {185, "10 - - - -"},     // SAIF: its L5 column stays empty
        {195, "10 11 13 14 17"}, // QZSS
        {177, "10 - - - -"},     // IRNSS
        {110, "- - - - -"},      // Reserved
        {0, "- - - - -"},        // Unused
    };
    for (const auto& [usi, expected] : cases) {
        const Sat s = Make(usi, 1, all);
        QStringList texts;
        for (const auto& text :
             {s.GetSNR1Str(), s.GetSNR2Str(), s.GetSNR3Str(), s.GetSNR4Str(), s.GetSNR5Str()})
            texts << (text.isEmpty() ? QStringLiteral("-") : text);
        EXPECT_EQ(texts.join(QLatin1Char(' ')), QLatin1String(expected)) << int(usi);
    }
    const Sat missing = Make(5, 255, {{0, 41}});
    EXPECT_EQ(missing.GetSNR1(), 41);
    EXPECT_EQ(missing.GetSNR2(), 255);
    EXPECT_TRUE(missing.GetSNR2Str().isEmpty());
}

TEST(SatelliteRecord, ColumnSetsAndTitles) {
    const std::pair<Sat::EConstellation, const char*> cases[] = {
        {Sat::GPS, "PRN EL AZ C/A L2C L1P L2P L5 TC SS"},
        {Sat::GLONASS, "SN EL AZ C/A L2CA L1P L2P L3 TC SS FCN"},
        {Sat::Galileo, "PRN EL AZ E1 E5a E5b E5ab E6 TC SS"},
        {Sat::BeiDou, "PRN EL AZ B1 B1C B2b B2a B3 TC SS"},
        {Sat::SBAS, "PRN EL AZ C/A L5 TC SS"},
        {Sat::SAIF, "PRN EL AZ C/A L5 TC SS"},
        {Sat::QZSS, "PRN EL AZ C/A L1C L2C L5 LEX TC SS"},
        {Sat::IRNSS, "PRN EL AZ L5A TC SS"},
        {Sat::Unused, "PRN EL AZ C/A TC SS"},
        {Sat::Reserved, "PRN EL AZ C/A TC SS"},
        {static_cast<Sat::EConstellation>(42), "PRN EL AZ C/A TC SS"},
    };
    for (const auto& [constellation, expected] : cases) {
        Sat::ColumnTitles columns{{Column::FCN, 1}}; // replaced, not appended to
        Sat::GetColumnsFor(constellation, columns);
        QStringList titles;
        int previous = 0;
        for (const auto& [column, id] : columns) {
            titles << g_PellLibApp.LoadString(id);
            EXPECT_GT(static_cast<int>(column), previous) << "columns in value order";
            previous = static_cast<int>(column);
        }
        EXPECT_EQ(titles.join(QLatin1Char(' ')), QLatin1String(expected)) << constellation;
    }

    // Every column's getter renders that column.
    Sat::ColumnGetters getters;
    Sat::GetAllColumnsEx(getters);
    std::vector<Column> all;
    Sat::GetAllColumns(all);
    ASSERT_EQ(getters.size(), 11u);
    ASSERT_EQ(all.size(), 11u);
    Sat glonass = Make(38, 7, {{0, 40}, {3, 43}, {1, 41}, {2, 42}, {4, 44}});
    glonass.Elevation = 33;
    glonass.Azimuth = 120;
    glonass.TC = 125;
    glonass.SS = 6;
    QStringList texts;
    for (std::size_t i = 0; i < getters.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(getters[i].first), i + 1);
        EXPECT_EQ(all[i], getters[i].first);
        texts << (glonass.*getters[i].second)();
    }
    EXPECT_EQ(texts.join(QLatin1Char(' ')), QStringLiteral("R7 33 120 40 43 41 42 44 2 6 -7"));
}

TEST(SatelliteRecord, SortOrder) {
    auto withElevation = [](std::uint8_t usi, std::int8_t elevation) {
        Sat s = Make(usi, 1);
        s.Elevation = elevation;
        return s;
    };
    const Sat gpsLow = withElevation(5, 10);
    const Sat gpsHigh = withElevation(9, 80);
    const Sat gloHigh = withElevation(40, 85);
    const Sat noSlotA = Make(38); // channel -7
    const Sat noSlotB = Make(50); // channel 5
    const Sat slotted = Make(39, 3);
    const Sat sbas = Make(130);
    const Sat saif = Make(185);
    const Sat empty = Make(0);
    Sat unknownAzimuth = Make(7);
    unknownAzimuth.Azimuth = 0xFFFF;
    Sat azimuth300 = Make(8);
    azimuth300.Azimuth = 300;

    struct Case {
        const Sat& a;
        const Sat& b;
        Column column;
        bool ascending, mergeSAIF, expected;
        const char* why;
    };
    const Case cases[] = {
        {gpsLow, gpsHigh, Column::Elevation, true, false, true, "ascending elevation"},
        {gpsLow, gpsHigh, Column::Elevation, false, false, false, "descending elevation"},
        {gpsHigh, gloHigh, Column::Elevation, false, false, true, "GPS before GLONASS always"},
        {gloHigh, gpsLow, Column::Elevation, false, false, false, "GLONASS after GPS always"},
        {gpsLow, gpsLow, Column::Elevation, true, false, false, "equal is not before"},
        {gpsLow, gpsLow, Column::Elevation, false, false, false, "equal is not before"},
        {noSlotA, noSlotB, Column::SVN, true, false, true, "no slots: by channel"},
        {noSlotB, noSlotA, Column::SVN, true, false, false, "no slots: by channel"},
        {slotted, noSlotA, Column::SVN, true, false, true, "slot 3 before unknown 255"},
        {noSlotB, slotted, Column::FCN, true, false, false, "channel 5 after -6"},
        {sbas, saif, Column::SVN, true, false, true, "SBAS before SAIF apart"},
        {saif, sbas, Column::SVN, true, true, false, "merged: S185 after S130"},
        {saif, sbas, Column::SVN, false, true, true, "merged, descending"},
        {saif, sbas, Column::SNR2, true, true, false, "merged: both L5 empty"},
        {empty, empty, Column::SVN, true, false, true, "an empty slot always first"},
        {gpsLow, empty, Column::SVN, true, false, false, "GPS after Unused"},
        {azimuth300, unknownAzimuth, Column::Azimuth, true, false, true, "unknown last"},
        {gpsLow, gpsHigh, static_cast<Column>(42), true, false, true, "else by number"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Sat::LE(c.a, c.b, c.column, c.ascending, c.mergeSAIF), c.expected) << c.why;

    EXPECT_EQ(saif.GetConstellation(true), Sat::SBAS);
    EXPECT_EQ(saif.GetConstellation(false), Sat::SAIF);
}

TEST(SatelliteRecord, AgeAndFadingRowColour) {
    pell::test::ScopedTick tick(0xFFFFFF00u); // wraps during the test
    Sat s = Make(5);
    const QRgb white = qRgb(255, 255, 255);
    const std::pair<std::uint32_t, QRgb> cases[] = {
        {0, qRgb(127, 234, 127)},     {1000, qRgb(127, 234, 127)}, // weight 128
        {1001, qRgb(128, 235, 128)},  {11000, white},              // 127, 0
        {11001, qRgb(162, 240, 162)},                              // wrapped: 93
    };
    for (const auto& [age, colour] : cases) {
        tick.Set(s.UpdateTick + age);
        EXPECT_EQ(s.GetAge(), static_cast<std::int32_t>(age));
        EXPECT_EQ(s.GetBkColor(white), colour) << age;
    }
    Sat::SatelliteInfo next;
    next.USI = 40;
    s.Update(next);
    EXPECT_EQ(s.GetAge(), 0);
    EXPECT_EQ(s.Constellation, Sat::GLONASS);

    EXPECT_EQ(pell::MixColors(qRgb(1, 2, 3), qRgb(200, 100, 50), 255), qRgb(1, 2, 3));
    EXPECT_EQ(pell::MixColors(qRgb(1, 2, 3), qRgb(200, 100, 50), 0), qRgb(200, 100, 50));
}

TEST(SatelliteRecord, SystemNames) {
    const std::tuple<Sat::EConstellation, const char*, const char*> cases[] = {
        {Sat::Unused, "Unused", "Unused"},
        {Sat::GPS, "GPS", "GPS"},
        {Sat::GLONASS, "GLONASS", "GLO"},
        {Sat::Galileo, "Galileo", "GAL"},
        {Sat::BeiDou, "BeiDou", "BDS"},
        {Sat::SBAS, "SBAS", "SBAS"},
        {Sat::SAIF, "SAIF", "SAIF"},
        {Sat::QZSS, "QZSS", "QZSS"},
        {Sat::IRNSS, "IRNSS", "IRNSS"},
        {Sat::Reserved, "Reserved", "Reserved"},
        {static_cast<Sat::EConstellation>(10), "", ""},
    };
    for (const auto& [constellation, longName, shortName] : cases) {
        EXPECT_EQ(Sat::GetSystem(constellation, false), QLatin1String(longName));
        EXPECT_EQ(Sat::GetSystem(constellation, true), QLatin1String(shortName));
    }
    EXPECT_EQ(Make(40).GetSystem(), QStringLiteral("GLO"));

    ASSERT_TRUE(g_PellLibApp.LoadTranslation(QLocale(QLocale::German, QLocale::Germany)));
    EXPECT_EQ(Sat::GetSystemX(Sat::Reserved, false), QStringLiteral("Reserviert"));
    EXPECT_EQ(Make(0).GetSystemX(), QStringLiteral("Unbenutzt"));
    EXPECT_EQ(Make(0).GetSystem(), QStringLiteral("Unused"));
    g_PellLibApp.LoadTranslation(QLocale::c());
}

} // namespace
