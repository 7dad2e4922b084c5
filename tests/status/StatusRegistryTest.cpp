#include "status/StatusRegistry.h"

#include "TestSupport.h"
#include "lib/PellLib.h"
#include "status/SatelliteInfoEx.h"

#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QString Describe(const pell::SatelliteStatusTable& table) {
    QStringList entries;
    for (const auto& [code, status] : table)
        entries << QStringLiteral("%1%2:%3")
                       .arg(code)
                       .arg(status.used ? QStringLiteral("+") : QString())
                       .arg(status.description);
    return entries.join(QLatin1Char(' '));
}

TEST(StatusRegistry, Parsing) {
    const std::pair<const char*, const char*> cases[] = {
        {R"(<satellitenavigationstatusregistry><STATUS ID="3" Wings="TRUE" XLATE_Description="a"/>
            <Other ID="4" Wings="true"/><status ID=" 5 " Wings="yes"/><Status ID="6" Wings="1"/>
            </satellitenavigationstatusregistry>)",
         "3+:a 5+: 6+:"},
        // Wings: anything but true, yes and 1 is not used; an absent description is empty.
        {R"(<SatelliteNavigationStatusRegistry><Status ID="1" Wings="false"/>
            <Status ID="2" Wings="on"/><Status ID="7"/></SatelliteNavigationStatusRegistry>)",
         "1: 2: 7:"},
        // The first of two entries with one code counts; codes outside 0..254 are skipped.
        {R"(<SatelliteNavigationStatusRegistry><Status ID="9" XLATE_Description="first"/>
            <Status ID="9" Wings="true" XLATE_Description="second"/><Status ID="255"/>
            <Status ID="-1"/><Status ID="x"/><Status ID="0x10"/><Status/>
            <Status ID="254" Wings="true"/></SatelliteNavigationStatusRegistry>)",
         "9:first 254+:"},
        {R"(<Registry><Status ID="0" Wings="true"/></Registry>)", ""},
        {R"(<SatelliteNavigationStatusRegistry><Status ID="0" Wings="true"/>)", ""},
        {"", ""},
        {"\xff\xfe<", ""},
    };
    for (const auto& [xml, expected] : cases)
        EXPECT_EQ(Describe(pell::ParseStatusRegistry(QByteArray(xml))), QLatin1String(expected))
            << xml;
}

TEST(StatusRegistry, Files) {
    QTemporaryDir folder;
    const QString broken = folder.filePath(QStringLiteral("broken.xml"));
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<SatelliteNavigationStatusRegistry><Status ID=\"0\" Wings=\"true\"");
    file.close();
    EXPECT_TRUE(pell::LoadStatusRegistry(broken).empty());
    // A good registry padded past 1 MiB is not read at all.
    const QString huge = folder.filePath(QStringLiteral("huge.xml"));
    QFile padded(huge);
    ASSERT_TRUE(padded.open(QIODevice::WriteOnly));
    padded.write("<SatelliteNavigationStatusRegistry><Status ID=\"0\" Wings=\"true\"/><!--");
    padded.write(QByteArray(1 << 20, 'x'));
    padded.write("--></SatelliteNavigationStatusRegistry>");
    padded.close();
    EXPECT_TRUE(pell::LoadStatusRegistry(huge).empty());
    EXPECT_TRUE(pell::LoadStatusRegistry(folder.filePath(QStringLiteral("none.xml"))).empty());

    const auto shipped = pell::LoadStatusRegistry(CPellLibApp::GetDataPath(
        QStringLiteral("SatelliteNavigationStatusRegistry"), QStringLiteral(".xml")));
    ASSERT_TRUE(shipped.contains(0));
    ASSERT_TRUE(shipped.contains(6));
    EXPECT_TRUE(shipped.at(0).used);
    EXPECT_FALSE(shipped.at(6).used);
}

// The record reads the registry shipped in the data folder.
TEST(StatusRegistry, RecordLookups) {
    pell::test::ScopedEnglish english;
    CSatelliteInfoEx s(CSatelliteInfoEx::GPS);
    const std::tuple<std::uint8_t, bool, const char*> cases[] = {
        {0, true, "Used in the position solution"},
        {6, false, "Tracked but not used in the position solution"},
        {7, false, "Rejected by the integrity check (RAIM)"},
        {200, false, ""},
        {255, false, ""},
    };
    for (const auto& [code, used, description] : cases) {
        s.SS = code;
        EXPECT_EQ(s.IsSatelliteUsed(), used) << int(code);
        EXPECT_EQ(CSatelliteInfoEx::IsSatelliteUsed(code), used) << int(code);
        EXPECT_EQ(s.GetSSFull(), QLatin1String(description)) << int(code);
    }

    // The descriptions are translated like every display name.
    ASSERT_TRUE(g_PellLibApp.LoadTranslation(QLocale(QLocale::German, QLocale::Germany)));
    s.SS = 6;
    EXPECT_EQ(s.GetSSFull(),
              QStringLiteral("Verfolgt, aber nicht in der Positionslösung verwendet"));
}

} // namespace
