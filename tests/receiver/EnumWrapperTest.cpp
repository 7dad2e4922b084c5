#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "lib/PellLib.h"
#include "lib/Translator.h"
#include "receiver/VexTypes.h"

#include <QLocale>
#include <QTranslator>
#include <cstdint>
#include <gtest/gtest.h>
#include <set>
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

// The value W reads from `text`, starting from a value that is neither in the table nor the
// fallback, so a reading that leaves the old value shows.
template <class W> int Read(const char* text) {
    W wrapper(static_cast<typename W::Enum>(99));
    return wrapper.FromReceiverString(QString::fromUtf8(text)).Value();
}

class EnumWrapperTest : public testing::Test {
protected:
    pell::test::ScopedEnglish english;
};

TEST_F(EnumWrapperTest, TablesAgreeWithTheReceiverModel) {
    const auto& enums = pell::test::ShippedModel()->Enums();
    std::set<QString> seen;
    ForEachWrapper([&]<class W>() {
        const EnumTable& table = W::Table();
        const QString name = QString::fromLatin1(table.name);
        SCOPED_TRACE(name.toStdString());
        EXPECT_TRUE(seen.insert(name).second) << "two wrappers of one enumeration";

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
    // The sheets need a wrapper for every enumeration the receiver knows.
    for (const auto& entry : enums)
        EXPECT_TRUE(seen.contains(entry.first)) << "no wrapper of " << entry.first.toStdString();
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

template <class W> void ExpectFallback(std::initializer_list<const char*> texts) {
    for (const char* text : texts)
        EXPECT_EQ(Read<W>(text), W::kFallback) << W::Table().name << " \"" << text << '"';
}

// Every table text reads back above; nothing else is taken for one.
TEST_F(EnumWrapperTest, OtherTextsReadAsTheFallback) {
    ExpectFallback<CBaudRateWrapper>({"9600 ", ""});
    ExpectFallback<CAntiJammingWrapper>({"OFF", "MANUAL"});
    ExpectFallback<CAmbiguityFixingLevelWrapperFN>({"High"});
    ExpectFallback<CParityWrapperFN>({"e", "o"});
    ExpectFallback<CRinexVersionWrapper>({"3.3"});
    ExpectFallback<COmniSymbolRateWrapper>(
        {"609x", " 609", "+609", "609.0", "1220", "100000000000000000000000000000000000609"});
    ExpectFallback<COnOffWrapperFN>({"onoff", "", "ON", "yes"});
    // A numeric table takes leading zeros; on/off takes braces.
    EXPECT_EQ(Read<COmniSymbolRateWrapper>("0009752"), OmniSymbolRate::Sps9752);
    EXPECT_EQ(Read<COnOffWrapperFN>("{on}"), On);
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
