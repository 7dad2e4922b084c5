#include "TestSupport.h"
#include "lib/PellGlobalSettings.h"
#include "lib/SettingsStore.h"

#include <QFile>
#include <QSettings>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pell {

// Makes and destroys instances with their own store, as the library does once per process.
struct GlobalSettingsTestAccess {
    using Handle = std::unique_ptr<CPellGlobalSettings, void (*)(CPellGlobalSettings*)>;
    static Handle Make(std::shared_ptr<ISettingsStore> store) {
        return Handle(new CPellGlobalSettings(std::move(store)),
                      [](CPellGlobalSettings* s) { delete s; });
    }
};

} // namespace pell

namespace {

using pell::GlobalSettingsTestAccess;
using rxio::ESolutionType;
using testing::ElementsAreArray;

// A store in memory that logs every access in order.
class RecordingStore final : public pell::ISettingsStore {
public:
    std::map<QString, QVariant> values; // "key\name" → value
    std::vector<QString> log;           // "read key\name", "write key\name", "flush"

    std::optional<std::uint32_t> ReadDword(const QString& key, const QString& name) override {
        const auto value = Read(key, name);
        return value ? std::optional(value->toUInt()) : std::nullopt;
    }
    std::optional<QString> ReadString(const QString& key, const QString& name) override {
        const auto value = Read(key, name);
        return value ? std::optional(value->toString()) : std::nullopt;
    }
    void WriteDword(const QString& key, const QString& name, std::uint32_t value) override {
        Write(key, name, value);
    }
    void WriteString(const QString& key, const QString& name, const QString& value) override {
        Write(key, name, value);
    }
    void Flush() override { log.push_back(QStringLiteral("flush")); }

private:
    std::optional<QVariant> Read(const QString& key, const QString& name) {
        log.push_back(QStringLiteral("read ") + key + QLatin1Char('\\') + name);
        const auto it = values.find(key + QLatin1Char('\\') + name);
        return it == values.end() ? std::nullopt : std::optional(it->second);
    }
    void Write(const QString& key, const QString& name, const QVariant& value) {
        log.push_back(QStringLiteral("write ") + key + QLatin1Char('\\') + name);
        values[key + QLatin1Char('\\') + name] = value;
    }
};

class GlobalSettingsTest : public testing::Test {
protected:
    void SetUp() override {
        QFile::remove(pell::test::SettingsFile());
        store = std::make_shared<RecordingStore>();
    }

    std::shared_ptr<RecordingStore> store;
};

std::vector<QString> Filter(const std::vector<QString>& log, const QString& prefix) {
    std::vector<QString> out;
    for (const QString& line : log)
        if (line.startsWith(prefix))
            out.push_back(line.mid(prefix.size()));
    return out;
}

TEST_F(GlobalSettingsTest, LoadsAndSavesInOrder) {
    std::vector<QString> names;
    for (const char* name :
         {"General\\AppMode", "General\\CoordSystem", "General\\HelpDisplayingMode",
          "General\\ModemAutodetection", "General\\ReceiverCache", "General\\Torvel_Settings"})
        names.push_back(QStringLiteral("GlobalSettings\\") + QLatin1String(name));
    for (const char* name : {"AutoSend", "SiteName", "Description", "AntennaType", "AntennaHeight",
                             "Slant", "Dynamics"})
        names.push_back(QStringLiteral("GlobalSettings\\SiteParameters\\") + QLatin1String(name));
    for (int type = 0; type < 19; ++type)
        names.push_back(QStringLiteral("GlobalSettings\\SolutionsColors\\Color#%1").arg(type));
    for (const char* name : {"EnableAutoScalingUI", "ManualScalingRatioUI", "SuppressTabletMode"})
        names.push_back(QStringLiteral("GlobalSettings\\General\\") + QLatin1String(name));

    auto settings = GlobalSettingsTestAccess::Make(store);
    EXPECT_THAT(Filter(store->log, QStringLiteral("read ")), ElementsAreArray(names));
    settings->SetFtpPort(7, 2121);
    settings->SetDTPBlockSize(1024);
    store->log.clear();
    settings.reset();
    // Tablet mode is only ever written by its setter; FTP ports and DTP values never.
    names.pop_back();
    EXPECT_THAT(Filter(store->log, QStringLiteral("write ")), ElementsAreArray(names));
}

// Nothing stored, or words another program left unreadable, read as the defaults.
TEST_F(GlobalSettingsTest, MissingOrUnreadableValuesReadAsDefaults) {
    {
        QSettings raw(pell::test::SettingsFile(), QSettings::IniFormat);
        raw.setValue("GlobalSettings/General/Torvel_Settings", "garbage");
        raw.setValue("GlobalSettings/General/AppMode", "-5");
        raw.setValue("GlobalSettings/SolutionsColors/Color#4", "99999999999");
    }
    auto settings = GlobalSettingsTestAccess::Make(std::make_shared<pell::CQSettingsStore>());
    EXPECT_EQ(settings->GetTorvelSettings().flags, 0x09u);
    EXPECT_EQ(settings->GetApplicationMode(), 1u);
    EXPECT_EQ(settings->GetSolutionTypeColor(ESolutionType::RtkFloat), 0xFF0000u);
    EXPECT_EQ(settings->GetHelpDisplayingMode(), 1u);
    EXPECT_TRUE(settings->GetModemAutodetection());
    EXPECT_TRUE(settings->GetSiteParameters().AutoSend);
    EXPECT_EQ(settings->GetDTPTimeout(), 10u);
    EXPECT_EQ(settings->GetDTPBlockSize(), 512u);
    EXPECT_TRUE(settings->IsAutoScalingEnabled());
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
        auto fresh = std::make_shared<RecordingStore>();
        if (c.stored)
            fresh->values[QStringLiteral("GlobalSettings\\SolutionsColors\\Color#%1").arg(c.type)] =
                *c.stored;
        auto settings = GlobalSettingsTestAccess::Make(fresh);
        EXPECT_EQ(settings->GetSolutionTypeColor(ESolutionType(c.type)), c.loaded)
            << "type " << c.type;
    }
    // Types the receiver may add later are grey until given a colour.
    auto settings = GlobalSettingsTestAccess::Make(store);
    EXPECT_EQ(settings->GetSolutionTypeColor(ESolutionType(19)), 0x808080u);
    EXPECT_EQ(settings->GetSolutionTypeColor(ESolutionType(-1)), 0x808080u);
    settings->SetSolutionTypeColor(ESolutionType(25), 0x123456);
    EXPECT_EQ(settings->GetSolutionTypeColor(ESolutionType(25)), 0x123456u);
}

TEST_F(GlobalSettingsTest, TabletModeIsWrittenAtOnce) {
    auto settings = GlobalSettingsTestAccess::Make(store);
    store->log.clear();
    settings->SuppressTabletMode(true);
    EXPECT_THAT(
        store->log,
        ElementsAreArray({QStringLiteral("write GlobalSettings\\General\\SuppressTabletMode"),
                          QStringLiteral("flush")}));
    EXPECT_EQ(store->values["GlobalSettings\\General\\SuppressTabletMode"].toUInt(), 1u);
}

TEST_F(GlobalSettingsTest, ScalingRatioIsStoredTruncatedToThousandths) {
    struct Case {
        double ratio;
        std::uint32_t stored;
        double reloaded;
    };
    const Case cases[] = {{1.2345, 1234, 1.234}, {0.9999, 999, 0.999}, {2.5, 2500, 2.5}};
    for (const Case& c : cases) {
        auto fresh = std::make_shared<RecordingStore>();
        auto settings = GlobalSettingsTestAccess::Make(fresh);
        settings->SetManualScalingRatio(c.ratio);
        settings.reset();
        EXPECT_EQ(fresh->values["GlobalSettings\\General\\ManualScalingRatioUI"].toUInt(), c.stored)
            << c.ratio;
        EXPECT_DOUBLE_EQ(GlobalSettingsTestAccess::Make(fresh)->GetManualScalingRatio(),
                         c.reloaded);
    }
}

TEST_F(GlobalSettingsTest, FtpPortsAreAVolatileMap) {
    auto settings = GlobalSettingsTestAccess::Make(store);
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

// Any non-zero word is true; help opens in the browser whatever was stored or set.
TEST_F(GlobalSettingsTest, StoredWordsAreReadLeniently) {
    store->values["GlobalSettings\\General\\ModemAutodetection"] = 0u;
    store->values["GlobalSettings\\General\\ReceiverCache"] = 7u;
    store->values["GlobalSettings\\SiteParameters\\Slant"] = 0xFFFFFFFFu;
    store->values["GlobalSettings\\General\\HelpDisplayingMode"] = 0u;
    auto settings = GlobalSettingsTestAccess::Make(store);
    EXPECT_FALSE(settings->GetModemAutodetection());
    EXPECT_TRUE(settings->GetReceiverCacheUse());
    EXPECT_TRUE(settings->GetSiteParameters().Slant);
    EXPECT_EQ(settings->GetHelpDisplayingMode(), 1u);
    settings->SetHelpDisplayingMode(EHelpDisplayingMode(0));
    EXPECT_EQ(settings->GetHelpDisplayingMode(), 1u);
    settings.reset();
    EXPECT_EQ(store->values["GlobalSettings\\General\\HelpDisplayingMode"].toUInt(), 1u);
}

// Written with a decimal point whatever the user's locale, and read back the same way.
TEST_F(GlobalSettingsTest, AntennaHeightTextReadsAsANumber) {
    const std::pair<QString, float> cases[] = {
        {"1.500000", 1.5F}, {"2", 2.0F}, {"abc", 0.0F}, {"", 0.0F}, {"-0.25", -0.25F}};
    for (const auto& [text, height] : cases) {
        auto fresh = std::make_shared<RecordingStore>();
        fresh->values["GlobalSettings\\SiteParameters\\AntennaHeight"] = text;
        EXPECT_FLOAT_EQ(GlobalSettingsTestAccess::Make(fresh)->GetSiteParameters().AntennaHeight,
                        height)
            << text.toStdString();
    }
}

// The raw names and values on the real store, as another program reading them would see them.
TEST_F(GlobalSettingsTest, StoresRawNamesAndValuesInQSettings) {
    auto settings = GlobalSettingsTestAccess::Make(std::make_shared<pell::CQSettingsStore>());
    settings->SetApplicationMode(EApplicationMode(3));
    settings->SetCoordSystem(CoordSystemCartesian);
    settings->SetModemAutodetection(false);
    settings->SetReceiverCacheUse(true);
    settings->SetTorvelSettings({0x3F});
    SiteParameters site;
    site.AutoSend = false;
    site.SiteName = QStringLiteral("Hügel 7");
    site.Description = QStringLiteral("north \"corner\"");
    site.AntennaHeight = 1.5F;
    site.Slant = true;
    settings->SetSiteParameters(site);
    settings->SetSolutionTypeColor(ESolutionType::RtkFixed, 0x00112233);
    settings->SetManualScalingRatio(1.2345);
    settings->EnableAutoScaling(false);
    settings->SuppressTabletMode(true);
    settings.reset();

    QSettings raw(pell::test::SettingsFile(), QSettings::IniFormat);
    const std::pair<const char*, QVariant> expected[] = {
        {"GlobalSettings/General/AppMode", 3},
        {"GlobalSettings/General/CoordSystem", 1},
        {"GlobalSettings/General/ModemAutodetection", 0},
        {"GlobalSettings/General/ReceiverCache", 1},
        {"GlobalSettings/General/Torvel_Settings", 63},
        {"GlobalSettings/General/EnableAutoScalingUI", 0},
        {"GlobalSettings/General/ManualScalingRatioUI", 1234},
        {"GlobalSettings/General/SuppressTabletMode", 1},
        {"GlobalSettings/SiteParameters/AutoSend", 0},
        {"GlobalSettings/SiteParameters/SiteName", QStringLiteral("Hügel 7")},
        {"GlobalSettings/SiteParameters/Description", QStringLiteral("north \"corner\"")},
        {"GlobalSettings/SiteParameters/AntennaHeight", QStringLiteral("1.500000")},
        {"GlobalSettings/SiteParameters/Slant", 1},
        {"GlobalSettings/SolutionsColors/Color#0", 0x808080},
        {"GlobalSettings/SolutionsColors/Color#3", 0x00112233},
    };
    for (const auto& [name, value] : expected)
        EXPECT_EQ(raw.value(QLatin1String(name)).toString(), value.toString()) << name;
    EXPECT_EQ(raw.allKeys().size(), 16 + 19);

    auto reloaded = GlobalSettingsTestAccess::Make(std::make_shared<pell::CQSettingsStore>());
    EXPECT_EQ(reloaded->GetSiteParameters().SiteName, QStringLiteral("Hügel 7"));
    EXPECT_EQ(reloaded->GetSolutionTypeColor(ESolutionType::RtkFixed), 0x00112233u);
    EXPECT_EQ(reloaded->GetTorvelSettings().flags, 0x3Fu);
    EXPECT_TRUE(reloaded->IsTabletModeSuppressed());
}

} // namespace
