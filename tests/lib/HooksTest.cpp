#include "TestSupport.h"
#include "lib/ControllerHardware.h"
#include "lib/PellGlobalSettings.h"
#include "lib/PellLib.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using pell::CSimulatedControllerHardware;
using pell::EDevice;
using Switch = CSimulatedControllerHardware::Switch;
using rxio::CPortAddr;
using rxio::EPortType;
using testing::ElementsAreArray;
using testing::IsEmpty;

const QString kReceiverPort = QStringLiteral("/dev/ttyINT0");
const QString kModemPort = QStringLiteral("/dev/ttyINT1");

std::shared_ptr<const rxio::IPortAddr> Port(const QString& name,
                                            EPortType type = EPortType::LocalSerial) {
    return std::make_shared<CPortAddr>(type, name);
}

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
};

struct OpenCase {
    const char* name;
    bool torvel;
    bool brantley;
    std::uint32_t flags;
    QString port;
    EPortType type;
    bool receiverPowered;
    bool modemPowered;
    bool result;
    std::vector<Switch> switches;
    int message; // string id of the box shown, 0 for none
};

TEST_F(HooksTest, PreOpenPort) {
    const OpenCase cases[] = {
        {"not of the family",
         false,
         false,
         0x00,
         kReceiverPort,
         EPortType::LocalSerial,
         false,
         false,
         true,
         {},
         0},
        {"network port",
         true,
         false,
         0x00,
         kReceiverPort,
         EPortType::Tcp,
         false,
         false,
         true,
         {},
         0},
        {"bluetooth port",
         true,
         false,
         0x00,
         kReceiverPort,
         EPortType::Bluetooth,
         false,
         false,
         true,
         {},
         0},
        {"other serial port",
         true,
         false,
         0x00,
         QStringLiteral("/dev/ttyUSB0"),
         EPortType::LocalSerial,
         false,
         false,
         true,
         {},
         0},
        {"receiver off, may switch",
         true,
         false,
         0x01,
         kReceiverPort,
         EPortType::LocalSerial,
         false,
         false,
         true,
         {{EDevice::Receiver, true}},
         0},
        {"receiver off, may not switch",
         true,
         false,
         0x08,
         kReceiverPort,
         EPortType::LocalSerial,
         false,
         false,
         false,
         {},
         3214},
        {"backpack receiver off, may not switch",
         true,
         true,
         0x00,
         kReceiverPort,
         EPortType::LocalSerial,
         false,
         false,
         false,
         {},
         3464},
        {"receiver already on, whatever the bits",
         true,
         false,
         0x00,
         kReceiverPort,
         EPortType::LocalSerial,
         true,
         false,
         true,
         {},
         0},
        {"modem off, may switch",
         true,
         false,
         0x08,
         kModemPort,
         EPortType::LocalSerial,
         false,
         false,
         true,
         {{EDevice::Modem, true}},
         0},
        {"modem off, may not switch",
         true,
         false,
         0x01,
         kModemPort,
         EPortType::LocalSerial,
         false,
         false,
         false,
         {},
         3247},
        {"backpack modem off, may not switch",
         true,
         true,
         0x01,
         kModemPort,
         EPortType::LocalSerial,
         false,
         false,
         false,
         {},
         3247},
        {"modem already on",
         true,
         false,
         0x00,
         kModemPort,
         EPortType::LocalSerial,
         false,
         true,
         true,
         {},
         0},
    };
    for (const OpenCase& c : cases) {
        SCOPED_TRACE(c.name);
        pell::test::ScopedPresenter boxes;
        auto hw = Install(c.torvel, c.brantley, c.flags);
        hw->SetPowered(EDevice::Receiver, c.receiverPowered);
        hw->SetPowered(EDevice::Modem, c.modemPowered);
        EXPECT_EQ(PreOpenPort(Port(c.port, c.type)), c.result);
        EXPECT_THAT(hw->Switches(), ElementsAreArray(c.switches));
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

TEST_F(HooksTest, PreOpenPortWithoutAPortDoesNothing) {
    pell::test::ScopedPresenter boxes;
    auto hw = Install(true, false, 0x00);
    EXPECT_TRUE(PreOpenPort(nullptr));
    EXPECT_TRUE(PostClosePort(nullptr));
    EXPECT_THAT(hw->Switches(), IsEmpty());
    EXPECT_THAT(boxes.Boxes(), IsEmpty());
}

struct CloseCase {
    const char* name;
    bool torvel;
    std::uint32_t flags;
    QString port;
    EPortType type;
    bool powered;
    std::vector<Switch> switches;
};

TEST_F(HooksTest, PostClosePort) {
    const CloseCase cases[] = {
        {"receiver off after close",
         true,
         0x02,
         kReceiverPort,
         EPortType::LocalSerial,
         true,
         {{EDevice::Receiver, false}}},
        {"receiver already off", true, 0x02, kReceiverPort, EPortType::LocalSerial, false, {}},
        {"receiver bit clear", true, 0x3D, kReceiverPort, EPortType::LocalSerial, true, {}},
        {"modem off after close",
         true,
         0x10,
         kModemPort,
         EPortType::LocalSerial,
         true,
         {{EDevice::Modem, false}}},
        {"modem bit clear", true, 0x2F, kModemPort, EPortType::LocalSerial, true, {}},
        {"receiver bit does not switch the modem",
         true,
         0x02,
         kModemPort,
         EPortType::LocalSerial,
         true,
         {}},
        {"not of the family", false, 0x3F, kReceiverPort, EPortType::LocalSerial, true, {}},
        {"network port", true, 0x3F, kReceiverPort, EPortType::Tcp, true, {}},
    };
    for (const CloseCase& c : cases) {
        SCOPED_TRACE(c.name);
        auto hw = Install(c.torvel, false, c.flags);
        hw->SetPowered(EDevice::Receiver, c.powered);
        hw->SetPowered(EDevice::Modem, c.powered);
        EXPECT_TRUE(PostClosePort(Port(c.port, c.type)));
        EXPECT_THAT(hw->Switches(), ElementsAreArray(c.switches));
    }
}

TEST_F(HooksTest, OnExitAppSwitchesOffWhateverTheState) {
    struct Case {
        bool torvel;
        std::uint32_t flags;
        std::vector<Switch> switches;
    };
    const Case cases[] = {
        {true, 0x04, {{EDevice::Receiver, false}}},
        {true, 0x20, {{EDevice::Modem, false}}},
        {true, 0x24, {{EDevice::Receiver, false}, {EDevice::Modem, false}}},
        {true, 0x1B, {}},
        {false, 0x3F, {}},
    };
    for (const Case& c : cases) {
        auto hw = Install(c.torvel, false, c.flags); // both devices already off
        OnExitApp();
        EXPECT_THAT(hw->Switches(), ElementsAreArray(c.switches)) << std::hex << c.flags;
    }
}

TEST_F(HooksTest, AFailingSwitchIsReportedAndRefusesThePort) {
    pell::test::ScopedPresenter boxes;
    auto hw = Install(true, false, 0x01 | 0x02);
    hw->FailNextSwitch(EDevice::Receiver, pell::ERROR_DEV_NOT_EXIST);
    EXPECT_FALSE(PreOpenPort(Port(kReceiverPort)));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_TRUE(boxes.Boxes()[0].text.contains(QStringLiteral("The device is not present.")));
    EXPECT_TRUE(boxes.Boxes()[0].text.contains(QStringLiteral("ControllerHardware.cpp")));
    EXPECT_FALSE(hw->IsPowered(EDevice::Receiver));

    hw->SetPowered(EDevice::Receiver, true);
    hw->FailNextSwitch(EDevice::Receiver, pell::ERROR_TIMEOUT);
    EXPECT_FALSE(PostClosePort(Port(kReceiverPort)));
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
    EXPECT_TRUE(PreOpenPort(Port(QStringLiteral("COM1"))));
    EXPECT_TRUE(PostClosePort(Port(QStringLiteral("COM1"))));
}

} // namespace
