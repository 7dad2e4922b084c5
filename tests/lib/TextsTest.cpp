#include "TestSupport.h"
#include "lib/PellLib.h"
#include "lib/PellLibDoc.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QXmlStreamReader>
#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace {

constexpr double kRadPerDeg = std::numbers::pi / 180.0;

// ctest runs every test under a German locale, so that a decimal comma or a German text that leaks
// into a command or a file fails the test that sees it. Qt and the C library must both have it.
TEST(TestEnvironment, IsGerman) {
    EXPECT_EQ(QLocale::system().uiLanguages().value(0).toStdString(), "de-DE");
    EXPECT_STREQ(std::localeconv()->decimal_point, ",")
        << "de_DE.UTF-8 is not generated (scripts/setup), or LC_ALL did not reach the test";
}

// Every test here runs in English unless it says otherwise.
class TextsTest : public testing::Test {
protected:
    pell::test::ScopedEnglish english;
};

TEST_F(TextsTest, CoordinateTexts) {
    const CPellLibApp& app = g_PellLibApp;
    const std::pair<QString, const char*> cases[] = {
        {app.Coordinates2String(0.0, true), "00°00'0.0000''N"},
        {app.Coordinates2String(0.0, false), "00°00'0.0000''E"},
        {app.Coordinates2String(-0.5, true), "00°30'0.0000''S"},
        {app.Coordinates2String(5.0, false), "05°00'0.0000''E"},
        {app.Coordinates2String(139.5, false), "139°30'0.0000''E"},
        {app.Coordinates2String(-179.999, false), "179°59'56.4000''W"},
        {app.Coordinates2String(90.0, true), "90°00'0.0000''N"},
        // 10° 59' 59.99999'' prints its seconds as 60: no carry into the minute.
        {app.Coordinates2String(10.0 + 59.0 / 60.0 + 59.99999 / 3600.0, true), "10°59'60.0000''N"},
        {app.Coordinates2String(vex::POS_GEO{(35 + 40.0 / 60 + 12.345678 / 3600) * kRadPerDeg,
                                             (139 + 45.0 / 60 + 1.0 / 3600) * kRadPerDeg, 40.1234}),
         "35°40'12.345678''N; 139°45'1.000000''E; 40.1234m"},
        {app.Coordinates2String(vex::POS_GEO{-0.5 * kRadPerDeg, -5.25 * kRadPerDeg, -12.5}),
         "00°30'0.000000''S; 05°15'0.000000''W; -12.5000m"},
        {app.Coordinates2String(vex::POS_XYZ{-2000000.5, 3000000.25, 4000000.0}),
         "-2000000.5000; 3000000.2500; 4000000.0000"},
        {app.Coordinates2String(vex::POS_XYZ{1.23456, -0.00004, 7.99996}),
         "1.2346; -0.0000; 8.0000"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(text, QString::fromUtf8(expected));
}

TEST_F(TextsTest, BuildDateIsALongDateInTheUsersLocale) {
    const std::pair<QLocale, const char*> cases[] = {
        {QLocale(QLocale::English, QLocale::UnitedStates), "Wednesday, October 2, 2019"},
        {QLocale(QLocale::German, QLocale::Germany), "Mittwoch, 2. Oktober 2019"},
    };
    for (const auto& [locale, text] : cases) {
        QLocale::setDefault(locale);
        EXPECT_EQ(CPellLibDoc::GetBuildDate(), QString::fromUtf8(text)) << text;
    }
}

TEST_F(TextsTest, StringTableLookups) {
    EXPECT_EQ(g_PellLibApp.LoadString(pell::ids::WrongName), QStringLiteral("Wrong name"));
    EXPECT_TRUE(g_PellLibApp.LoadString(2).isEmpty());
    EXPECT_TRUE(g_PellLibApp.XLoadString(99999).isEmpty());
    // Lookups search the table by id, and the catalogs know an entry by its id's text.
    const auto table = pell::StringTable();
    for (std::size_t i = 1; i < table.size(); ++i)
        EXPECT_LT(table[i - 1].id, table[i].id) << "table must stay sorted at " << table[i].id;
    for (const auto& entry : table)
        EXPECT_EQ(QString::number(entry.id), QString::fromLatin1(entry.source.idText));
}

TEST_F(TextsTest, LocalisingLoaderUsesTheInstalledTranslation) {
    ASSERT_TRUE(g_PellLibApp.LoadTranslation(QLocale(QLocale::German, QLocale::Germany)));
    EXPECT_EQ(g_PellLibApp.XLoadString(pell::ids::East), QStringLiteral("O"));
    EXPECT_EQ(g_PellLibApp.LoadString(pell::ids::East), QStringLiteral("E"));
    EXPECT_EQ(CPellLibDoc::GetApplicationVersion(true),
              QStringLiteral("Version 3.5, Build 169146"));
    EXPECT_EQ(CPellLibDoc::GetApplicationVersion(false),
              QStringLiteral("Version 3.5, build 169146"));
    EXPECT_EQ(g_PellLibApp.Coordinates2String(-1.5, false), QString::fromUtf8("01°30'0.0000''W"));
    EXPECT_EQ(g_PellLibApp.Coordinates2String(1.5, false), QString::fromUtf8("01°30'0.0000''O"));

    // A language without a translation falls back to the table's English.
    EXPECT_FALSE(g_PellLibApp.LoadTranslation(QLocale(QLocale::Japanese, QLocale::Japan)));
    EXPECT_EQ(g_PellLibApp.XLoadString(pell::ids::East), QStringLiteral("E"));
}

// The catalog that the build makes from the table holds every entry under its id.
TEST_F(TextsTest, GeneratedCatalogHoldsTheWholeTable) {
    QFile file(QStringLiteral(PELL_TRANSLATIONS_DIR "/pell.ts"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    std::map<QString, QString> catalog; // id → source
    QXmlStreamReader xml(&file);
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("source"))
            source = xml.readElementText();
        else if (xml.name() == QLatin1String("comment"))
            catalog[xml.readElementText()] = source;
    }
    ASSERT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    const auto table = pell::StringTable();
    EXPECT_EQ(catalog.size(), table.size());
    for (const auto& entry : table)
        EXPECT_EQ(catalog[QString::number(entry.id)], QString::fromUtf8(entry.source.text));
}

TEST_F(TextsTest, DataAndHelpFoldersLieBesideTheLibrary) {
    const QString data =
        CPellLibApp::GetDataPath(QStringLiteral("CountryCodesISO3166-1"), QStringLiteral(".xml"));
    const QString help = CPellLibApp::GetHelpPath(QStringLiteral("Index"), QStringLiteral(".html"));
    // The tests sit in the same folder as the library.
    const QString folder = QCoreApplication::applicationDirPath();
    EXPECT_EQ(data, folder + QStringLiteral("/DATA/CountryCodesISO3166-1.xml"));
    EXPECT_EQ(help, folder + QStringLiteral("/Help/Index.html"));
    EXPECT_TRUE(QDir(folder + QStringLiteral("/DATA")).exists());
}

} // namespace
