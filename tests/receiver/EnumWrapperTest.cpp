#include "SimulatedReceiver.h"
#include "lib/PellLib.h"
#include "lib/Translator.h"
#include "receiver/VexTypes.h"

#include <QLocale>
#include <QTranslator>
#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <utility>

namespace {

using namespace rxio::vex;

// Calls f.operator()<W>() for every wrapper W of the list.
template <class F, class... W> void ForEach(WrapperList<W...>, F&& f) {
    (f.template operator()<W>(), ...);
}

template <class F> void ForEachWrapper(F&& f) {
    ForEach(AllReceiverEnumWrappers{}, std::forward<F>(f));
}

// What a wrapper object may hold: its virtual table and one 32-bit value.
struct VtableAndValue {
    virtual ~VtableAndValue() = default;
    std::int32_t value;
};

// The instantiations dialogs use: enumeration (as the receiver model names it), fallback, and
// whether the display text is translated.
struct Instantiation {
    int fallback;
    bool translated;
    bool operator==(const Instantiation&) const = default;
};
const std::map<QString, Instantiation> kInstantiations = {
    {"EAntiJamming", {4, false}},
    {"EBaudRate", {9, false}},
    {"EButtonDynamicMode", {0, false}},
    {"EByteSize", {3, false}},
    {"EDIONMode", {0, false}},
    {"EELCCalibrationMode", {0, false}},
    {"EFnKeyMode", {0, false}},
    {"ELocalBluetoothMode", {0, false}},
    {"EMMode", {0, false}},
    {"EMState", {0, false}},
    {"EModem", {0, false}},
    {"EOmniSymbolRate", {2, false}},
    {"EPosComputationMode", {0, false}},
    {"EReceiverBehaviorOnStartUp", {0, false}},
    {"EStopBits", {0, false}},
    {"EKestrelInitializationType", {0, false}},
    {"ERinexVersion", {5, false}},
    {"EAmbiguityFixingLevel", {2, true}},
    {"EAntenna", {2, true}},
    {"EBatteryChargeModeLinux", {1, true}},
    {"ECom", {0, true}},
    {"EComState", {0, true}},
    {"EDev", {0, true}},
    {"EEmailAuthentication", {0, true}},
    {"EExtAntennaStatus", {0, true}},
    {"EFrqAmplitude", {0, true}},
    {"EFrqInput", {0, true}},
    {"EFrqStatus", {0, true}},
    {"EIMode", {0, true}},
    {"EIonoCorrections", {0, true}},
    {"ELBandService", {0, true}},
    {"EFarwireClientMode", {0, true}},
    {"EFarwireSvcType", {0, true}},
    {"ENotificationLevel", {2, true}},
    {"ENtripCasterAuth", {0, true}},
    {"ENtripCasterUserGroup", {0, true}},
    {"ENtripMode", {0, true}},
    {"ENtripProtocol", {0, true}},
    {"EOnOff", {0, true}},
    {"EOscillatorOffsetReduction", {0, true}},
    {"EPPPMode", {0, true}},
    {"EParity", {0, true}},
    {"EPositionOutputMode", {1, true}},
    {"ERTKDynamic", {0, true}},
    {"ERinexVersionOff", {0, true}},
    {"ERinexZIP", {0, true}},
    {"ESignalRefTime", {0, true}},
    {"ESignalSync", {0, true}},
    {"ESlotState", {0, true}},
    {"EWlanMode", {0, true}},
};

// The value W reads from `text`, starting from a value that is neither in the table nor the
// fallback, so a reading that leaves the old value shows.
template <class W> int Read(const char* text) {
    W wrapper(static_cast<typename W::Enum>(99));
    return wrapper.FromReceiverString(QString::fromUtf8(text)).Value();
}

// Each test starts and ends without a translation.
class EnumWrapperTest : public testing::Test {
protected:
    void SetUp() override { g_PellLibApp.LoadTranslation(QLocale::c()); }
    void TearDown() override { SetUp(); }
};

TEST_F(EnumWrapperTest, TablesAgreeWithTheReceiverModel) {
    const auto& enums = pell::test::ShippedModel()->Enums();
    std::map<QString, Instantiation> seen;
    ForEachWrapper([&]<class W>() {
        const EnumTable& table = W::Table();
        const QString name = QString::fromLatin1(table.name);
        SCOPED_TRACE(name.toStdString());
        EXPECT_TRUE(seen.emplace(name, Instantiation{W::kFallback, W::kTranslated}).second)
            << "two wrappers of one enumeration";

        const auto model = enums.find(name);
        ASSERT_NE(model, enums.end());
        QStringList texts;
        QStringList names;
        for (const auto& item : table.items) {
            texts << QString::fromLatin1(item.text);
            names << QString::fromUtf8(item.name);
        }
        EXPECT_EQ(texts, model->second.texts);
        EXPECT_EQ(names, model->second.names);
        EXPECT_EQ(W::kFallback, model->second.fallback);
        EXPECT_EQ(table.parsing == EnumTable::Numeric, model->second.numeric);
    });
    EXPECT_EQ(seen, kInstantiations);
}

TEST_F(EnumWrapperTest, EveryValueRoundTripsAndShowsItsName) {
    ForEachWrapper([]<class W>() {
        using E = typename W::Enum;
        static_assert(sizeof(W) == sizeof(VtableAndValue));
        const EnumTable& table = W::Table();
        SCOPED_TRACE(table.name);
        EXPECT_EQ(W().Value(), W::kFallback);
        ASSERT_LT(W::kFallback, W::Count());

        for (int value = 0; value < W::Count(); ++value) {
            const W wrapper(static_cast<E>(value));
            W read;
            read.SetValue(static_cast<E>((value + 1) % W::Count()));
            EXPECT_EQ(read.FromReceiverString(wrapper.ToReceiverString()).Value(), value);
            EXPECT_EQ(wrapper.ToDisplayString(), QString::fromUtf8(table.items[value].name));
            EXPECT_EQ(W::DisplayText(static_cast<E>(value)), wrapper.ToDisplayString());
        }

        if (table.parsing != EnumTable::OnOff) {
            EXPECT_EQ(Read<W>(""), W::kFallback);
        }
        for (const int outside : {-1, W::Count()}) {
            const W wrapper(static_cast<E>(outside));
            EXPECT_TRUE(wrapper.ToReceiverString().isEmpty()) << outside;
            EXPECT_TRUE(wrapper.ToDisplayString().isEmpty()) << outside;
        }
    });
}

TEST_F(EnumWrapperTest, ReadsReceiverTexts) {
    struct Case {
        const char* what;
        int read;
        int expected;
    };
    const Case cases[] = {
        {"9600", Read<CBaudRateWrapper>("9600"), Baud9600},
        {"9600 with a trailing blank", Read<CBaudRateWrapper>("9600 "), Baud115200},
        {"empty baud rate", Read<CBaudRateWrapper>(""), Baud115200},
        {"921600", Read<CBaudRateWrapper>("921600"), Baud921600},
        {"AUTO", Read<CAntiJammingWrapper>("AUTO"), AntiJamming::Auto},
        {"OFF", Read<CAntiJammingWrapper>("OFF"), AntiJamming::Auto},
        {"manual", Read<CAntiJammingWrapper>("manual"), AntiJamming::Manual},
        {"High", Read<CAmbiguityFixingLevelWrapperFN>("High"), AmbiguityFixingLevel::Medium},
        {"parity e", Read<CParityWrapperFN>("e"), ParityNone},
        {"parity O", Read<CParityWrapperFN>("O"), ParityOdd},
        {"/dev/ser/b", Read<CComWrapperFN>("/dev/ser/b"), ComSerialB},
        {"3.03", Read<CRinexVersionWrapper>("3.03"), RinexVersion::V303},
        {"3.3", Read<CRinexVersionWrapper>("3.3"), RinexVersion::V302},
        {"rinex off", Read<CRinexVersionOffWrapperFN>("off"), RinexVersionOff::Off},

        {"2438", Read<COmniSymbolRateWrapper>("2438"), OmniSymbolRate::Sps2438},
        {"02438", Read<COmniSymbolRateWrapper>("02438"), OmniSymbolRate::Sps2438},
        {"609", Read<COmniSymbolRateWrapper>("609"), OmniSymbolRate::Sps609},
        {"0009752", Read<COmniSymbolRateWrapper>("0009752"), OmniSymbolRate::Sps9752},
        {"609x", Read<COmniSymbolRateWrapper>("609x"), OmniSymbolRate::Sps2438},
        {"2438x", Read<COmniSymbolRateWrapper>("2438x"), OmniSymbolRate::Sps2438},
        {"blank 609", Read<COmniSymbolRateWrapper>(" 609"), OmniSymbolRate::Sps2438},
        {"+609", Read<COmniSymbolRateWrapper>("+609"), OmniSymbolRate::Sps2438},
        {"609.0", Read<COmniSymbolRateWrapper>("609.0"), OmniSymbolRate::Sps2438},
        {"1220", Read<COmniSymbolRateWrapper>("1220"), OmniSymbolRate::Sps2438},
        {"overflowing number",
         Read<COmniSymbolRateWrapper>("100000000000000000000000000000000000609"),
         OmniSymbolRate::Sps2438},

        {"on", Read<COnOffWrapperFN>("on"), On},
        {"off", Read<COnOffWrapperFN>("off"), Off},
        {"{on}", Read<COnOffWrapperFN>("{on}"), On},
        {"onoff", Read<COnOffWrapperFN>("onoff"), Off},
        {"empty on/off", Read<COnOffWrapperFN>(""), Off},
        {"ON", Read<COnOffWrapperFN>("ON"), Off},
        {"yes", Read<COnOffWrapperFN>("yes"), Off},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.read, c.expected) << c.what;
}

TEST_F(EnumWrapperTest, FriendlyNamesFollowTheInstalledTranslation) {
    const COnOffWrapperFN on(On);
    const CReceiverEnumWrapper<EOnOff, 0>& asPlain = on;
    const CAntiJammingWrapper plainOff(AntiJamming::Off);
    EXPECT_EQ(asPlain.ToDisplayString(), QStringLiteral("On"));

    ASSERT_TRUE(g_PellLibApp.LoadTranslation(QLocale(QLocale::German, QLocale::Germany)));
    EXPECT_EQ(on.ToDisplayString(), QStringLiteral("Ein"));
    EXPECT_EQ(asPlain.ToDisplayString(), QStringLiteral("Ein"));
    EXPECT_EQ(COnOffWrapperFN::DisplayText(Off), QStringLiteral("Aus"));
    EXPECT_EQ(CAntennaWrapperFN(Antenna::Internal).ToDisplayString(), QStringLiteral("Intern"));
    EXPECT_EQ(plainOff.ToDisplayString(), QStringLiteral("Off"));
    EXPECT_EQ(CAntiJammingWrapper::DisplayText(AntiJamming::Off), QStringLiteral("Off"));
    EXPECT_EQ(on.ToReceiverString(), QStringLiteral("on"));
    EXPECT_EQ(ulm_std::CTranslatorInstance::Ref().XlateEx(QStringLiteral("No such name")),
              QStringLiteral("No such name"));

    ASSERT_FALSE(g_PellLibApp.LoadTranslation(QLocale(QLocale::Japanese, QLocale::Japan)));
    EXPECT_EQ(on.ToDisplayString(), QStringLiteral("On"));
}

// A name added without its German translation would show in English among German ones.
TEST_F(EnumWrapperTest, GermanCatalogTranslatesEveryName) {
    QTranslator german;
    ASSERT_TRUE(german.load(QStringLiteral(PELL_TRANSLATIONS_DIR "/pell_de.qm")));
    ForEachWrapper([&]<class W>() {
        for (const auto& item : W::Table().items)
            EXPECT_FALSE(
                german.translate(ulm_std::CTranslatorInstance::kContext, item.name).isEmpty())
                << W::Table().name << ": " << item.name;
    });
}

} // namespace
