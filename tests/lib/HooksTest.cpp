#include "TestSupport.h"
#include "lib/ControllerHardware.h"
#include "lib/PellGlobalSettings.h"
#include "lib/PellLib.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using pell::CSimulatedControllerHardware;
using pell::EDevice;
using Switch = CSimulatedControllerHardware::Switch;
using rxio::CPortAddr;
using rxio::EPortType;
using testing::IsEmpty;

const QString kReceiverPort = QStringLiteral("/dev/ttyINT0");
const QString kModemPort = QStringLiteral("/dev/ttyINT1");

class HooksTest : public testing::Test {
protected:
    void SetUp() override { saved = CPellGlobalSettings::Ref().GetTorvelSettings(); }
    void TearDown() override {
        CPellGlobalSettings::Ref().SetTorvelSettings(saved);
        pell::SetControllerHardware(nullptr);
    }

    std::shared_ptr<CSimulatedControllerHardware> Install(bool torvel, bool brantley,
                                                          std::uint32_t flags) {
        auto hw = std::make_shared<CSimulatedControllerHardware>(torvel, brantley, kReceiverPort,
                                                                 kModemPort);
        pell::SetControllerHardware(hw);
        CPellGlobalSettings::Ref().SetTorvelSettings({flags});
        return hw;
    }

    Torvel_Settings saved;
    pell::test::ScopedEnglish english;
};

enum Hook { Open, Close, Exit };
enum Controller { Plain, Torvel, Brantley };
// The receiver's and the modem's internal ports, another serial port, and the receiver's port
// name on links that are not serial.
enum Where { NoPort, ReceiverPort, ModemPort, OtherSerial, Network, Bluetooth };

std::shared_ptr<const rxio::IPortAddr> PortAt(Where where) {
    if (where == NoPort)
        return nullptr;
    const std::pair<QString, EPortType> ports[] = {
        {kReceiverPort, EPortType::LocalSerial},
        {kModemPort, EPortType::LocalSerial},
        {QStringLiteral("/dev/ttyUSB0"), EPortType::LocalSerial},
        {kReceiverPort, EPortType::Tcp},
        {kReceiverPort, EPortType::Bluetooth}};
    const auto& [name, type] = ports[where - 1];
    return std::make_shared<CPortAddr>(type, name);
}

// "R+ M-": the receiver switched on, then the modem off.
std::string Log(const std::vector<Switch>& switches) {
    std::string log;
    for (const Switch& s : switches)
        log += std::string(log.empty() ? "" : " ") + (s.device == EDevice::Receiver ? 'R' : 'M') +
               (s.on ? '+' : '-');
    return log;
}

TEST_F(HooksTest, PowerFollowsTheFlags) {
    struct Case {
        const char* name;
        Hook hook;
        Controller controller;
        std::uint32_t flags;
        Where port;
        const char* powered; // devices on before the hook: "R", "M", "RM"
        bool result;
        const char* switches;
        int message; // string id of the box shown, 0 for none
    };
    const Case cases[] = {
        {"not of the family", Open, Plain, 0x3F, ReceiverPort, "", true, "", 0},
        {"network port", Open, Torvel, 0x3F, Network, "", true, "", 0},
        {"bluetooth port", Open, Torvel, 0x3F, Bluetooth, "", true, "", 0},
        {"other serial port", Open, Torvel, 0x3F, OtherSerial, "", true, "", 0},
        {"no port", Open, Torvel, 0x3F, NoPort, "", true, "", 0},
        {"receiver off, may switch", Open, Torvel, 0x01, ReceiverPort, "", true, "R+", 0},
        {"receiver off, may not", Open, Torvel, 0x08, ReceiverPort, "", false, "", 3214},
        {"backpack receiver off", Open, Brantley, 0x00, ReceiverPort, "", false, "", 3464},
        {"receiver already on", Open, Torvel, 0x00, ReceiverPort, "R", true, "", 0},
        {"modem off, may switch", Open, Torvel, 0x08, ModemPort, "", true, "M+", 0},
        {"modem off, may not", Open, Torvel, 0x01, ModemPort, "", false, "", 3247},
        {"backpack modem off", Open, Brantley, 0x01, ModemPort, "", false, "", 3247},
        {"modem already on", Open, Torvel, 0x00, ModemPort, "M", true, "", 0},

        {"receiver off after close", Close, Torvel, 0x02, ReceiverPort, "RM", true, "R-", 0},
        {"receiver already off", Close, Torvel, 0x02, ReceiverPort, "", true, "", 0},
        {"receiver bit clear", Close, Torvel, 0x3D, ReceiverPort, "RM", true, "", 0},
        {"modem off after close", Close, Torvel, 0x10, ModemPort, "RM", true, "M-", 0},
        {"modem bit clear", Close, Torvel, 0x2F, ModemPort, "RM", true, "", 0},
        {"receiver bit, modem port", Close, Torvel, 0x02, ModemPort, "RM", true, "", 0},
        {"not of the family", Close, Plain, 0x3F, ReceiverPort, "RM", true, "", 0},
        {"network port", Close, Torvel, 0x3F, Network, "RM", true, "", 0},
        {"no port", Close, Torvel, 0x3F, NoPort, "RM", true, "", 0},

        // On exit the devices are switched off whatever their state.
        {"receiver at exit", Exit, Torvel, 0x04, NoPort, "", true, "R-", 0},
        {"modem at exit", Exit, Torvel, 0x20, NoPort, "", true, "M-", 0},
        {"both at exit", Exit, Torvel, 0x24, NoPort, "", true, "R- M-", 0},
        {"exit bits clear", Exit, Torvel, 0x1B, NoPort, "RM", true, "", 0},
        {"not of the family at exit", Exit, Plain, 0x3F, NoPort, "RM", true, "", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        pell::test::ScopedPresenter boxes;
        auto hw = Install(c.controller != Plain, c.controller == Brantley, c.flags);
        hw->SetPowered(EDevice::Receiver, std::strchr(c.powered, 'R') != nullptr);
        hw->SetPowered(EDevice::Modem, std::strchr(c.powered, 'M') != nullptr);
        bool result = true;
        if (c.hook == Open)
            result = PreOpenPort(PortAt(c.port));
        else if (c.hook == Close)
            result = PostClosePort(PortAt(c.port));
        else
            OnExitApp();
        EXPECT_EQ(result, c.result);
        EXPECT_EQ(Log(hw->Switches()), c.switches);
        if (c.message == 0) {
            EXPECT_THAT(boxes.Boxes(), IsEmpty());
        } else {
            ASSERT_EQ(boxes.Boxes().size(), 1u);
            EXPECT_EQ(boxes.Boxes()[0].text, g_PellLibApp.XLoadString(unsigned(c.message)));
            EXPECT_EQ(boxes.Boxes()[0].caption, QStringLiteral("Dorrit"));
            EXPECT_EQ(boxes.Boxes()[0].style & pell::MB_ICONMASK, pell::MB_ICONERROR);
        }
    }
}

TEST_F(HooksTest, AFailingSwitchIsReportedAndRefusesThePort) {
    pell::test::ScopedPresenter boxes;
    auto hw = Install(true, false, 0x01 | 0x02);
    hw->FailNextSwitch(EDevice::Receiver, pell::ERROR_DEV_NOT_EXIST);
    EXPECT_FALSE(PreOpenPort(PortAt(ReceiverPort)));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_TRUE(boxes.Boxes()[0].text.contains(QStringLiteral("The device is not present.")));
    EXPECT_TRUE(boxes.Boxes()[0].text.contains(QStringLiteral("ControllerHardware.cpp")));
    EXPECT_FALSE(hw->IsPowered(EDevice::Receiver));

    hw->SetPowered(EDevice::Receiver, true);
    hw->FailNextSwitch(EDevice::Receiver, pell::ERROR_TIMEOUT);
    EXPECT_FALSE(PostClosePort(PortAt(ReceiverPort)));
    ASSERT_EQ(boxes.Boxes().size(), 2u);
    EXPECT_TRUE(boxes.Boxes()[1].text.contains(QStringLiteral("(error 1460)")));

    CPellGlobalSettings::Ref().SetTorvelSettings({0x04});
    hw->FailNextSwitch(EDevice::Receiver, pell::ERROR_NOT_SUPPORTED);
    OnExitApp();
    EXPECT_EQ(boxes.Boxes().size(), 3u);
}

TEST_F(HooksTest, PlainComputerIsTheDefault) {
    pell::SetControllerHardware(nullptr);
    EXPECT_FALSE(pell::ControllerHardware().IsTorvel());
    CPellGlobalSettings::Ref().SetTorvelSettings({0x3F});
    EXPECT_TRUE(PreOpenPort(PortAt(OtherSerial)));
    EXPECT_TRUE(PostClosePort(PortAt(OtherSerial)));
}

} // namespace
