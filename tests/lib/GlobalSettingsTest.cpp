#include "TestSupport.h"
#include "lib/PellGlobalSettings.h"
#include "lib/SettingsStore.h"

#include <QFile>
#include <QSettings>
#include <gtest/gtest.h>

namespace pell {

// Makes and destroys instances with their own store, as the library does once per process.
struct GlobalSettingsTestAccess {
    using Handle = std::unique_ptr<CPellGlobalSettings, void (*)(CPellGlobalSettings*)>;
    static Handle Load() {
        return Handle(new CPellGlobalSettings(std::make_shared<CQSettingsStore>()),
                      [](CPellGlobalSettings* s) { delete s; });
    }
};

} // namespace pell

namespace {

using rxio::ESolutionType;

// The settings as another program sees them: raw names below "GlobalSettings/".
void Store(std::initializer_list<std::pair<const char*, QVariant>> values) {
    QSettings raw(pell::test::SettingsFile(), QSettings::IniFormat);
    raw.clear();
    for (const auto& [name, value] : values)
        raw.setValue(QStringLiteral("GlobalSettings/") + QLatin1String(name), value);
}

std::map<QString, QString> Stored() {
    QSettings raw(pell::test::SettingsFile(), QSettings::IniFormat);
    std::map<QString, QString> values;
    for (const QString& key : raw.allKeys())
        values[key.mid(QStringLiteral("GlobalSettings/").size())] = raw.value(key).toString();
    return values;
}

class GlobalSettingsTest : public testing::Test {
protected:
    void SetUp() override { Store({}); }
};

auto Load() {
    return pell::GlobalSettingsTestAccess::Load();
}

// Words another program left unreadable, or nothing stored, read as the defaults.
TEST_F(GlobalSettingsTest, MissingOrUnreadableValuesReadAsDefaults) {
    Store({{"General/Torvel_Settings", "garbage"},
           {"General/AppMode", "-5"},
           {"SolutionsColors/Color#4", "99999999999"}});
    auto settings = Load();
    EXPECT_EQ(settings->GetTorvelSettings().flags, 0x09u);
    EXPECT_EQ(settings->GetApplicationMode(), 1u);
    EXPECT_EQ(settings->GetSolutionTypeColor(ESolutionType::RtkFloat), 0xFF0000u);
    EXPECT_TRUE(settings->GetModemAutodetection());
    EXPECT_DOUBLE_EQ(settings->GetManualScalingRatio(), 1.0);
}

TEST_F(GlobalSettingsTest, StoredColourOfAllOnesMeansBuiltIn) {
    struct Case {
        int type;
        std::optional<std::uint32_t> stored;
        pell::COLORREF loaded;
    };
    const Case cases[] = {
        {1, 0xFFFFFFFF, 0x0000FF}, // cannot be kept: reads back as the default
        {1, 0xFFFFFFFE, 0xFFFFFFFE}, {1, 0x00000000, 0x00000000},
        {5, 0xFFFFFFFF, 0x808080},   {12, std::nullopt, 0xFE00FE},
    };
    for (const Case& c : cases) {
        const QByteArray name = "SolutionsColors/Color#" + QByteArray::number(c.type);
        if (c.stored)
            Store({{name.constData(), *c.stored}});
        else
            Store({});
        EXPECT_EQ(Load()->GetSolutionTypeColor(ESolutionType(c.type)), c.loaded)
            << "type " << c.type;
    }
    // Types the receiver may add later are grey until given a colour.
    auto settings = Load();
    EXPECT_EQ(settings->GetSolutionTypeColor(ESolutionType(19)), 0x808080u);
    EXPECT_EQ(settings->GetSolutionTypeColor(ESolutionType(-1)), 0x808080u);
    settings->SetSolutionTypeColor(ESolutionType(25), 0x123456);
    EXPECT_EQ(settings->GetSolutionTypeColor(ESolutionType(25)), 0x123456u);
}

// Any non-zero word is true; help opens in the browser whatever was stored or set.
TEST_F(GlobalSettingsTest, StoredWordsAreReadLeniently) {
    Store({{"General/ModemAutodetection", 0u},
           {"General/ReceiverCache", 7u},
           {"SiteParameters/Slant", 0xFFFFFFFFu},
           {"General/HelpDisplayingMode", 0u}});
    auto settings = Load();
    EXPECT_FALSE(settings->GetModemAutodetection());
    EXPECT_TRUE(settings->GetReceiverCacheUse());
    EXPECT_TRUE(settings->GetSiteParameters().Slant);
    EXPECT_EQ(settings->GetHelpDisplayingMode(), 1u);
    settings->SetHelpDisplayingMode(EHelpDisplayingMode(0));
    settings.reset();
    EXPECT_EQ(Stored()["General/HelpDisplayingMode"], QStringLiteral("1"));
}

// Written with a decimal point whatever the user's locale, and read back the same way.
TEST_F(GlobalSettingsTest, AntennaHeightTextReadsAsANumber) {
    const std::pair<const char*, float> cases[] = {
        {"1.500000", 1.5F}, {"2", 2.0F}, {"abc", 0.0F}, {"", 0.0F}, {"-0.25", -0.25F}};
    for (const auto& [text, height] : cases) {
        Store({{"SiteParameters/AntennaHeight", QString::fromLatin1(text)}});
        EXPECT_FLOAT_EQ(Load()->GetSiteParameters().AntennaHeight, height) << text;
    }
}

TEST_F(GlobalSettingsTest, ScalingRatioIsStoredTruncatedToThousandths) {
    struct Case {
        double ratio;
        const char* stored;
        double reloaded;
    };
    const Case cases[] = {{1.2345, "1234", 1.234}, {0.9999, "999", 0.999}, {2.5, "2500", 2.5}};
    for (const Case& c : cases) {
        Load()->SetManualScalingRatio(c.ratio);
        EXPECT_EQ(Stored()["General/ManualScalingRatioUI"], QLatin1String(c.stored)) << c.ratio;
        EXPECT_DOUBLE_EQ(Load()->GetManualScalingRatio(), c.reloaded);
    }
}

TEST_F(GlobalSettingsTest, TabletModeIsWrittenAtOnce) {
    // Named first: a QSettings that goes away writes what every other one has pending.
    QFile file(pell::test::SettingsFile());
    auto settings = Load();
    settings->SuppressTabletMode(true);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("SuppressTabletMode=1"));
}

TEST_F(GlobalSettingsTest, FtpPortsAreAVolatileMap) {
    auto settings = Load();
    // The port read back; when there is none, the out value is cleared.
    const auto port = [&](int device) -> std::optional<unsigned short> {
        unsigned short value = 99;
        if (settings->GetFtpPort(device, value))
            return value;
        EXPECT_EQ(value, 0);
        return std::nullopt;
    };
    EXPECT_EQ(port(1), std::nullopt);
    settings->SetFtpPort(1, 21);
    settings->SetFtpPort(2, 2121);
    settings->SetFtpPort(1, 8021); // replaces
    EXPECT_EQ(port(1), 8021);
    settings->SetFtpPort(1, 0); // removes
    EXPECT_EQ(port(1), std::nullopt);
    EXPECT_EQ(port(2), 2121);
    settings->ResetVolatileSettings();
    EXPECT_EQ(port(2), std::nullopt);
}

// The raw names and values, as another program reading them would see them; every value comes
// back under the name it was written with.
TEST_F(GlobalSettingsTest, StoresRawNamesAndValuesAndReadsThemBack) {
    auto settings = Load();
    settings->SetApplicationMode(EApplicationMode(3));
    settings->SetCoordSystem(CoordSystemCartesian);
    settings->SetModemAutodetection(false);
    settings->SetReceiverCacheUse(true);
    settings->SetTorvelSettings({0x3F});
    settings->SetSiteParameters({false, QStringLiteral("Hügel 7"),
                                 QStringLiteral("north \"corner\""), QStringLiteral("ANT-2"), 1.5F,
                                 true, true});
    for (int type = 0; type < 19; ++type)
        settings->SetSolutionTypeColor(ESolutionType(type), 0x00112200 + type);
    settings->SetManualScalingRatio(1.2345);
    settings->EnableAutoScaling(false);
    settings->SuppressTabletMode(true);
    // Never stored.
    settings->SetFtpPort(7, 2121);
    settings->SetDTPBlockSize(1024);
    settings.reset();

    const std::map<QString, QString> stored = Stored();
    EXPECT_EQ(stored.size(), 16u + 19u);
    const std::pair<const char*, const char*> expected[] = {
        {"General/AppMode", "3"},
        {"General/CoordSystem", "1"},
        {"General/HelpDisplayingMode", "1"},
        {"General/ModemAutodetection", "0"},
        {"General/ReceiverCache", "1"},
        {"General/Torvel_Settings", "63"},
        {"General/EnableAutoScalingUI", "0"},
        {"General/ManualScalingRatioUI", "1234"},
        {"General/SuppressTabletMode", "1"},
        {"SiteParameters/AutoSend", "0"},
        {"SiteParameters/SiteName", "Hügel 7"},
        {"SiteParameters/Description", "north \"corner\""},
        {"SiteParameters/AntennaType", "ANT-2"},
        {"SiteParameters/AntennaHeight", "1.500000"},
        {"SiteParameters/Slant", "1"},
        {"SiteParameters/Dynamics", "1"},
        {"SolutionsColors/Color#0", "1122816"},
        {"SolutionsColors/Color#18", "1122834"},
    };
    for (const auto& [name, value] : expected)
        EXPECT_EQ(stored.at(QLatin1String(name)), QString::fromUtf8(value)) << name;

    Load().reset();
    EXPECT_EQ(Stored(), stored);
}

} // namespace
