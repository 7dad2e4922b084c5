#include "BleModule.h"
#include "ClassicBtModule.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "links/BluetoothDlg.h"
#include "links/BluetoothSmartEngine.h"
#include "links/BluetoothSmartPS.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

// Readable failures.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

using namespace pell::test;
using Bench = LinkedSimulator;
using Pairs = CBluetoothSmartEngine::Pairs;

// Both ports of a pass-through as the receiver prints them, to compare before and after.
QString Ports(Bench& bench, const QString& module) {
    return Exec(*bench.connection, QStringLiteral("print,cur/term")).reply + QLatin1Char('|') +
           Exec(*bench.connection, QStringLiteral("print,") + module).reply;
}

QString Value(const Pairs& pairs, const char* key) {
    for (const auto& [name, value] : pairs)
        if (name == QLatin1String(key))
            return value;
    return QStringLiteral("<missing>");
}

TEST(BluetoothTest, PinsAreFilledToSixDigitsOnTheLeft) {
    const struct {
        const char *pin, *sent;
    } cases[] = {{"12", "000012"},
                 {"", ""},
                 {"12345", "012345"},
                 {"123456", "123456"},
                 {"1234567", "1234567"}};
    for (const auto& c : cases)
        EXPECT_EQ(CBluetoothSmartEngine::PadPin(QLatin1String(c.pin)), QLatin1String(c.sent));
}

TEST(BluetoothTest, RepliesSplitIntoTrimmedPairsInOrder) {
    const Pairs pairs = CBluetoothSmartEngine::ParseReply(
        QStringLiteral("PELL BLE Module\r\nPID=\"BLE\"\r\n SN = \"a=b\" \r\nX=\"\r\nX=2\r\n\r\n"));
    const Pairs expected = {{"PID", "BLE"}, {"SN", "a=b"}, {"X", "\""}, {"X", "2"}};
    EXPECT_EQ(pairs, expected);
}

TEST(BluetoothTest, AdvertisingRecordAndNameFollowTheIdentity) {
    const struct {
        const char *model, *serial, *secondId, *record, *name;
    } cases[] = {
        {"Ostrel Q", "SN-0042A", "",
         "0202050100"
         "2A000000"
         "0300000000",
         "OSQ-SN-0042A-L"},
        {"ostrel w", "", "0F3 A9",
         "0202050300"
         "00000000"
         "0300000000",
         "OSW-0F3A9-L"},
        {"Pardo7", "99999999999", "",
         "0202050400"
         "FFFFFFFF"
         "0300000000",
         "-99999999999-L"},
        {"Lumen7", "4294967295", "",
         "0202050200"
         "FFFFFFFF"
         "0300000000",
         "-4294967295-L"},
        {"Soren", "258", "",
         "0202050000"
         "02010000"
         "0300000000",
         "-258-L"},
    };
    for (const auto& c : cases) {
        const CBluetoothSmartIdentity identity{QStringLiteral("PELL"),
                                               QLatin1String(c.model),
                                               {},
                                               QLatin1String(c.serial),
                                               QLatin1String(c.secondId)};
        const auto record = CBluetoothSmartEngine::MakeAdvertisingRecord(identity);
        EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(record.data()), record.size())
                      .toHex()
                      .toUpper(),
                  QByteArray(c.record))
            << c.model;
        EXPECT_EQ(CBluetoothSmartEngine::MakeFriendlyName(identity), QLatin1String(c.name));
    }
}

TEST(BluetoothTest, ModelsChooseTheModuleAndTheWindow) {
    const ScopedEnglish english;
    const struct {
        const char* model;
        unsigned port;
        CBluetoothDeviceType::EType type;
    } cases[] = {{"Ostrel Q", 950, CBluetoothDeviceType::Smart},
                 {"OSTREL W", 950, CBluetoothDeviceType::Smart},
                 {"Pardo7", 950, CBluetoothDeviceType::Smart},
                 {"lumen7", 103, CBluetoothDeviceType::Smart},
                 {"Marten", 0, CBluetoothDeviceType::Classic},
                 {"Soren", 0, CBluetoothDeviceType::Unknown}};
    for (const auto& c : cases) {
        EXPECT_EQ(CBluetoothSmartEngine::ModulePortFor(QLatin1String(c.model)), c.port);
        const CBluetoothDeviceType device = CBluetoothDeviceType::Detect(QLatin1String(c.model));
        EXPECT_EQ(device.type, c.type) << c.model;
        EXPECT_EQ(device.error.isEmpty(), c.type != CBluetoothDeviceType::Unknown);
    }
    EXPECT_EQ(CBluetoothDeviceType::Detect(QStringLiteral("Soren")).error,
              QStringLiteral("The receiver model \"Soren\" has no Bluetooth module that can be "
                             "configured here."));
}

// Opens, reads, changes and closes through the real pass-through; the module keeps the change,
// the ports get their settings back, the connection answers again.
void OpenReadChangeClose(Bench& bench, const QString& module) {
    // A port's message sets outlive the pass-through (a port that takes no output refuses it).
    Exec(*bench.connection, QStringLiteral("em,%1,nmea/GGA").arg(module));
    const QString before = Ports(bench, module);
    {
        CBluetoothSmartEngine engine(bench.connection);
        engine.Open();
        Pairs pairs;
        engine.ReadSettings(pairs);
        EXPECT_EQ(Value(pairs, "FNAME"), QStringLiteral("PELL-BLE"));
        EXPECT_EQ(Value(pairs, "RADIO"), QStringLiteral("on"));
        engine.SetFriendlyName(QStringLiteral("Field Crew 7"));
        engine.SetPin(CBluetoothSmartEngine::PadPin(QStringLiteral("42")));
        engine.SetRadio(false);
        engine.ReadInformation(pairs);
        EXPECT_EQ(Value(pairs, "PID"), QStringLiteral("BLE"));
        engine.Close();
    }
    const rxsim::BleSettings& held = bench.simulator.BleModule()->Settings();
    EXPECT_EQ(held.friendlyName, QStringLiteral("Field Crew 7"));
    EXPECT_EQ(held.pin, QStringLiteral("000042"));
    EXPECT_FALSE(held.radio);
    EXPECT_FALSE(bench.simulator.BleModule()->InCommandMode());
    EXPECT_EQ(Ports(bench, module), before);
}

TEST(BluetoothTest, EngineWorksThroughThePassThroughInProcessOverAPtyAndOnASerialModulePort) {
    const struct {
        Bench::ELink link;
        const char *profile, *module;
    } cases[] = {{Bench::InProcess, "pardo7", "dev/ble/a"},
                 {Bench::Pty, "ostrel-q", "dev/ble/a"},
                 {Bench::InProcess, "lumen7", "dev/ser/d"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.profile);
        Bench bench(c.link, ShippedModel(), QLatin1String(c.profile));
        OpenReadChangeClose(bench, QLatin1String(c.module));
    }
}

TEST(BluetoothTest, SplitRepliesAndAnEarlierErrorStillEndAtOk) {
    for (const bool split : {true, false}) {
        Bench bench(Bench::InProcess, ShippedModel(), QStringLiteral("pardo7"));
        rxsim::ModuleFaults& faults = bench.simulator.BleModule()->GetFaults();
        faults.splitReplies = split;
        CBluetoothSmartEngine engine(bench.connection);
        engine.Open();
        // After the product check, which compares its whole reply.
        faults.errorBeforeOk = !split;
        Pairs pairs;
        engine.ReadSettings(pairs);
        EXPECT_EQ(Value(pairs, "ADDR"), bench.simulator.BleModule()->Address());
        engine.SetFriendlyName(QStringLiteral("split"));
        EXPECT_EQ(bench.simulator.BleModule()->Settings().friendlyName, QStringLiteral("split"));
    }
}

TEST(BluetoothTest, EveryFailureHasItsCodeAndLeavesThePortsAsTheyWere) {
    const ScopedEnglish english;
    const struct {
        const char* what;
        const char* profile;
        std::function<void(rxsim::ModuleFaults&)> before; // knobs before Open
        std::function<void(CBluetoothSmartEngine&, rxsim::ModuleFaults&)> after;
        unsigned long code; // 0: a communication error from the module
    } cases[] = {
        {"silent module", "pardo7", [](auto& f) { f.silent = true; }, nullptr, 55},
        {"not a BLE module", "ostrel-w", [](auto& f) { f.notBle = true; }, nullptr, 55},
        {"refused command", "pardo7", nullptr,
         [](auto& e, auto&) { e.SetFriendlyName(QString(33, QLatin1Char('n'))); }, 0},
        {"time-out", "pardo7", nullptr,
         [](auto& e, auto& f) {
             f.silent = true;
             e.SetRadio(true);
         },
         1460},
        {"a quote typed into the name", "pardo7", nullptr,
         [](auto& e, auto&) { e.SetFriendlyName(QStringLiteral("a\" \r\nBOOT INIT")); }, 87},
        {"a probe after closing", "pardo7", nullptr,
         [](auto& e, auto&) {
             e.Close();
             e.Probe(false);
         },
         55},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ScopedTick tick(0xFFFFF000u); // the waits cross the wrap of the tick counter
        tick.Step(10);
        Bench bench(Bench::InProcess, ShippedModel(), QLatin1String(c.profile));
        rxsim::ModuleFaults& faults = bench.simulator.BleModule()->GetFaults();
        const QString before = Ports(bench, QStringLiteral("dev/ble/a"));
        const rxsim::BleSettings held = bench.simulator.BleModule()->Settings();
        try {
            CBluetoothSmartEngine engine(bench.connection);
            if (c.before)
                c.before(faults);
            engine.Open();
            c.after(engine, faults);
            ADD_FAILURE() << "no failure";
        } catch (const ulm_std::CWinException& e) {
            EXPECT_EQ(e.GetErrorCode(), c.code);
        } catch (const ulm_std::CCommException& e) {
            EXPECT_EQ(c.code, 0u);
            EXPECT_EQ(e.GetSource(), QStringLiteral("BLE"));
            EXPECT_EQ(e.GetReply(), QStringLiteral("ERROR=INVALID PARAMETER"));
        }
        faults = {};
        // Module commands never reach the receiver as commands of its own.
        EXPECT_TRUE(bench.simulator.ReceivedCommands().filter(QStringLiteral("ATI")).isEmpty());
        EXPECT_EQ(Ports(bench, QStringLiteral("dev/ble/a")), before);
        EXPECT_EQ(bench.simulator.BleModule()->Settings(), held);
        EXPECT_EQ(Exec(*bench.connection, QStringLiteral("print,rcv/model")).reply,
                  QStringLiteral("\"") + bench.simulator.BleModule()->Settings().modelId +
                      QStringLiteral("\""));
    }
    Bench soren(Bench::InProcess, ShippedModel(), QStringLiteral("soren"));
    try {
        CBluetoothSmartEngine engine(soren.connection);
        ADD_FAILURE() << "a receiver without a module";
    } catch (const ulm_std::CWinException& e) {
        EXPECT_EQ(e.GetErrorCode(), pell::ERROR_NOT_SUPPORTED);
    }
}

TEST(BluetoothTest, SheetReadsAppliesAndFactoryResets) {
    const ScopedEnglish english;
    ScopedTick tick(0xFFFFFFF0u);
    tick.Step(10);
    const ScopedPresenter boxes(pell::IDYES);
    Bench bench(Bench::InProcess, ShippedModel(), QStringLiteral("ostrel-q"));
    const QString before = Ports(bench, QStringLiteral("dev/ble/a"));
    {
        CPellWindow<CBluetoothSmartPS> sheet(bench.connection);
        sheet.Prepare();
        sheet.show();
        auto* name = sheet.findChild<QLineEdit*>(QStringLiteral("name"));
        auto* pin = sheet.findChild<QLineEdit*>(QStringLiteral("pin"));
        EXPECT_EQ(name->text(), QStringLiteral("PELL-BLE"));
        EXPECT_TRUE(sheet.findChild<QLineEdit*>(QStringLiteral("address"))->isReadOnly());
        // A quote cannot be typed: the validator refuses it before anything is sent.
        QString typed = QStringLiteral("a\"b");
        int at = 0;
        EXPECT_EQ(name->validator()->validate(typed, at), QValidator::Invalid);
        name->setText(QStringLiteral("Crew"));
        emit name->textEdited(name->text());
        pin->setText(QStringLiteral("7"));
        emit pin->textEdited(pin->text());
        sheet.findChild<QPushButton*>(QStringLiteral("applyButton"))->click();
        const rxsim::BleSettings& held = bench.simulator.BleModule()->Settings();
        EXPECT_EQ(held.friendlyName, QStringLiteral("Crew"));
        EXPECT_EQ(held.pin, QStringLiteral("000007"));

        auto* keepAlive = sheet.findChild<QTimer*>(QStringLiteral("keepAlive"));
        EXPECT_EQ(keepAlive->interval(), 30000);
        keepAlive->start(1);
        Spin(50);
        keepAlive->start(30000);
        EXPECT_TRUE(bench.simulator.BleModule()->InCommandMode());

        sheet.SetActivePage(1);
        EXPECT_GT(sheet.findChild<QTreeWidget*>(QStringLiteral("information"))->topLevelItemCount(),
                  5);

        sheet.SetActivePage(0);
        sheet.findChild<QPushButton*>(QStringLiteral("factoryReset"))->click();
        ASSERT_FALSE(boxes.Boxes().empty());
        EXPECT_EQ(boxes.Boxes().front().style,
                  pell::MB_YESNO | pell::MB_ICONWARNING | pell::MB_DEFBUTTON2);
        EXPECT_EQ(boxes.Boxes().front().text,
                  QStringLiteral("The device's settings will be reset to their factory values. "
                                 "Please confirm."));
        EXPECT_EQ(held.friendlyName, QStringLiteral("OSQ-SN-0042A-L"));
        EXPECT_EQ(held.vendorId, QStringLiteral("PELL"));
        EXPECT_EQ(held.modelId, QStringLiteral("Ostrel Q"));
        EXPECT_EQ(held.serialNumber, QStringLiteral("SN-0042A"));
        EXPECT_EQ(held.hardwareVersion, QStringLiteral("2.1"));
        EXPECT_EQ(held.advertising.toHex().toUpper(), QByteArray("020205010"
                                                                 "02A0000000300000000"));
        EXPECT_TRUE(held.radio);
        EXPECT_EQ(name->text(), QStringLiteral("OSQ-SN-0042A-L"));
        for (const auto& box : boxes.Boxes())
            EXPECT_EQ(box.text, boxes.Boxes().front().text);
        sheet.reject();
    }
    EXPECT_EQ(Ports(bench, QStringLiteral("dev/ble/a")), before);
}

TEST(BluetoothTest, ClassicDialogReadsWritesInOrderAndRefusesAnEmptyName) {
    const ScopedEnglish english;
    for (const Bench::ELink link : {Bench::InProcess, Bench::Pty}) {
        SCOPED_TRACE(int(link));
        const ScopedPresenter boxes;
        Bench bench(link, ShippedModel(), QStringLiteral("marten"));
        const QString before = Ports(bench, QStringLiteral("dev/ser/c"));
        {
            CPellWindow<CBluetoothDlg> dialog(bench.connection);
            dialog.Prepare();
            dialog.show();
            EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("identification"))->text(),
                      QStringLiteral("PELL BT-C Module 2.3"));
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("name"));
            EXPECT_EQ(name->text(), QStringLiteral("PELL-BT"));
            EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("pin"))->text(),
                      QString()); // NoPinSet
            EXPECT_FALSE(dialog.findChild<QCheckBox*>(QStringLiteral("encryption"))->isChecked());

            name->clear();
            dialog.accept();
            ASSERT_EQ(boxes.Boxes().size(), 1u);
            EXPECT_EQ(boxes.Boxes()[0].text, QStringLiteral("Wrong name"));
            EXPECT_EQ(boxes.Boxes()[0].style, pell::MB_OK | pell::MB_ICONERROR);
            EXPECT_EQ(bench.simulator.ClassicModule()->Settings().name, QStringLiteral("PELL-BT"));
            EXPECT_TRUE(dialog.isVisible());

            name->setText(QStringLiteral("Base, north"));
            dialog.findChild<QLineEdit*>(QStringLiteral("pin"))->setText(QStringLiteral("1234"));
            dialog.findChild<QCheckBox*>(QStringLiteral("authentication"))->setChecked(true);
            dialog.findChild<QCheckBox*>(QStringLiteral("encryption"))->setChecked(true);
            dialog.accept();
            EXPECT_EQ(dialog.ClosingResult(), pell::IDOK);
        }
        const rxsim::ClassicBtSettings& held = bench.simulator.ClassicModule()->Settings();
        EXPECT_EQ(held.name, QStringLiteral("Base, north"));
        EXPECT_EQ(held.pin, QStringLiteral("1234"));
        EXPECT_TRUE(held.authentication);
        EXPECT_TRUE(held.encryption);
        EXPECT_EQ(Ports(bench, QStringLiteral("dev/ser/c")), before);
    }
}

TEST(BluetoothTest, AFactoryResetThatFailsEndsTheSheetAndPutsThePortsBack) {
    ScopedTick tick;
    tick.Step(10);
    const ScopedPresenter boxes(pell::IDYES);
    Bench bench(Bench::InProcess, ShippedModel(), QStringLiteral("pardo7"));
    const QString before = Ports(bench, QStringLiteral("dev/ble/a"));
    {
        CPellWindow<CBluetoothSmartPS> sheet(bench.connection);
        sheet.Prepare();
        sheet.show();
        bench.simulator.BleModule()->GetFaults().silent = true;
        sheet.findChild<QPushButton*>(QStringLiteral("factoryReset"))->click();
        EXPECT_EQ(sheet.ClosingResult(), pell::IDCANCEL);
        EXPECT_EQ(boxes.Boxes().size(), 2u); // the question, then the time-out
        bench.simulator.BleModule()->GetFaults() = {};
    }
    EXPECT_EQ(Ports(bench, QStringLiteral("dev/ble/a")), before);
}

TEST(BluetoothTest, AReceiverWithoutAModuleIsToldAndCancelled) {
    const ScopedEnglish english;
    const ScopedPresenter boxes;
    Bench bench(Bench::InProcess, ShippedModel(), QStringLiteral("soren"));
    EXPECT_EQ(run_BluetoothDlg(bench.connection, nullptr), pell::IDCANCEL);
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Boxes()[0].style, pell::MB_OK | pell::MB_ICONERROR);
    EXPECT_TRUE(boxes.Boxes()[0].text.contains(QStringLiteral("\"Soren\"")));
}

TEST(BluetoothTest, ClassicRepliesReadWithoutCase) {
    const struct {
        const char* reply;
        bool on;
        const char* pin;
    } cases[] = {{"ON", true, "ON"},      {"On", true, "On"},      {"1", false, "1"},
                 {"OFF", false, "OFF"},   {"nopinset", false, ""}, {"NoPinSet", false, ""},
                 {"0042", false, "0042"}, {"", false, ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(CBluetoothModuleLink::IsOn(QLatin1String(c.reply)), c.on) << c.reply;
        EXPECT_EQ(CBluetoothModuleLink::Pin(QLatin1String(c.reply)), QLatin1String(c.pin));
    }
}

TEST(BluetoothTest, ClassicSetUpToleratesASilentWakeUpOnly) {
    auto tick = std::make_unique<ScopedTick>();
    tick->Step(10);
    Bench bench(Bench::InProcess, ShippedModel(), QStringLiteral("marten"));
    bench.simulator.ClassicModule()->GetFaults().silent = true;
    CBluetoothModuleLink link(bench.connection);
    EXPECT_NO_THROW(link.SetUp());
    try {
        link.Command(QStringLiteral("print,btname\r\n"));
        ADD_FAILURE() << "a silent module answered";
    } catch (const ulm_std::CWinException& e) {
        EXPECT_EQ(e.GetErrorCode(), pell::ERROR_TIMEOUT);
    }
    tick.reset(); // a reply split into bytes takes real time
    bench.simulator.ClassicModule()->GetFaults() = {};
    bench.simulator.ClassicModule()->GetFaults().splitReplies = true;
    EXPECT_EQ(link.Command(QStringLiteral("print,btencrypt\r\n")), QStringLiteral("OFF"));
    EXPECT_THROW(link.Set("btname", QStringLiteral("a\r\nset,btpin,")), ulm_std::CWinException);
}

} // namespace
