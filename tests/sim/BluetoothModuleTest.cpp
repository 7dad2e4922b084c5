#include "SimulatedReceiver.h"
#include "rxio/Link.h"
#include "rxio/Pipe.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>

namespace {

using pell::test::Exec;
using pell::test::Spin;
using Bench = pell::test::LinkedSimulator;

struct Step {
    const char* what;
    QByteArray say;
    QByteArray hear; // "@" stands for the module's address
};

// A controller talking to the module behind `port` as the library does: the echo set up with
// receiver commands, the connection's own use of the port suspended, raw bytes both ways.
class ModuleSession {
public:
    ModuleSession(Bench::ELink link, const QString& profile, const QString& port)
        : bench(link, pell::test::ShippedModel(), profile), m_port(port) {
        Open();
    }

    void Open() {
        const rxio::CommandResult r =
            Exec(*bench.connection, QStringLiteral("set,cur/term/eoff,\"#OFF#\";set,cur/term/"
                                                   "echo,/%1;set,cur/term/imode,echo")
                                        .arg(m_port));
        EXPECT_FALSE(r.error) << r.reply.toStdString();
        bench.connection->SuspendPort();
    }

    // The terminator ends the pass-through: the receiver answers commands again.
    void Close() {
        bench.connection->Port().Write("#OFF#\r\n");
        bench.connection->ResumePort();
        EXPECT_EQ(Exec(*bench.connection, QStringLiteral("print,cur/term/imode")).reply,
                  QStringLiteral("cmd"));
        EXPECT_FALSE(bench.simulator.InPassThrough());
    }

    // A new controller connection, as after the controller lost the old one.
    void Reconnect() {
        bench.connection->Disconnect();
        std::unique_ptr<rxio::CLink> link;
        if (bench.pty) {
            link = rxio::OpenSerialLink(bench.pty->SlavePath(), 115200, false).link;
        } else {
            auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
            bench.simulator.Serve(theirs.get());
            bench.receiverEnd = std::move(theirs);
            link = rxio::OpenInProcessLink(std::move(mine), QStringLiteral("sim")).link;
        }
        ASSERT_TRUE(link);
        bench.connection = rxio::CReceiverConnection::Create(std::move(link));
    }

    // What comes back for `bytes`, read as the library's engine reads: polling the raw port,
    // joining the pieces (counted in `pieces`). It waits for `expected` bytes, then a little
    // longer, so that one byte too many shows.
    QByteArray Say(const QByteArray& bytes, qsizetype expected, int* pieces = nullptr) {
        rxio::IPort& port = bench.connection->Port();
        port.Write(bytes);
        QByteArray heard;
        const QDeadlineTimer deadline(2000);
        while (heard.size() < expected && !deadline.hasExpired()) {
            if (const std::size_t n = port.BytesWaiting()) {
                heard += port.Read(n);
                if (pieces != nullptr)
                    ++*pieces;
            } else {
                QCoreApplication::processEvents();
            }
        }
        Spin(30);
        if (const std::size_t n = port.BytesWaiting())
            heard += port.Read(n);
        return heard;
    }

    void Run(const std::vector<Step>& steps, const QString& address = {}) {
        for (const Step& step : steps) {
            SCOPED_TRACE(step.what);
            QByteArray hear = step.hear;
            hear.replace('@', address.toUtf8());
            EXPECT_EQ(Say(step.say, hear.size()), hear);
        }
    }

    Bench bench;

private:
    QString m_port;
};

struct Where {
    Bench::ELink link;
    const char* profile;
    const char* port;
};

std::string WhereName(const testing::TestParamInfo<Where>& where) {
    return std::string(where.param.link == Bench::Pty ? "Pty_" : "InProcess_") +
           where.param.profile;
}

class BleModule : public testing::TestWithParam<Where> {};

const QByteArray kOk = "OK\r\n";
const QByteArray kInvalid = "ERROR=INVALID PARAMETER\r\n";
const QByteArray kUnknown = "ERROR=UNKNOWN COMMAND\r\n";

// Escape, commands, persistence across ATO, pass-through sessions and reconnects, refusals
// that change nothing, and the factory restart.
TEST_P(BleModule, AnswersItsCommandsAndKeepsItsSettings) {
    ModuleSession session(GetParam().link, QString::fromLatin1(GetParam().profile),
                          QString::fromLatin1(GetParam().port));
    rxsim::CBleModule* module = session.bench.simulator.BleModule();
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(session.bench.simulator.ClassicModule(), nullptr);
    const QString address = module->Address();
    EXPECT_TRUE(address.startsWith(QStringLiteral("00:1B:C5:"))) << address.toStdString();

    const QByteArray changed = "FNAME=\"Crew 7 Rover\"\r\nPIN=\"1234567\"\r\nADDR=\"@\"\r\n"
                               "RADIO=off\r\nOK\r\n";
    session.Run(
        {
            {"data mode hears no command", "ATI PID\r\n", ""},
            {"escape", "+++", kOk},
            {"empty line", "\r\n", kOk},
            {"product", "ATI PID\r\n", "\"BLE\"\r\nOK\r\n"},
            {"any case, a lone LF", "ati pid\n", "\"BLE\"\r\nOK\r\n"},
            {"escape while awake", "+++", kOk},
            {"settings as shipped", "BT\r",
             "FNAME=\"PELL-BLE\"\r\nPIN=\"000000\"\r\nADDR=\"@\"\r\nRADIO=on\r\nOK\r\n"},
            {"name keeps its case", "BT FNAME \"Crew 7 Rover\"\r\n", kOk},
            {"pin", "BT PIN \"1234567\"\r\n", kOk},
            {"radio", "bt&f radio off\r\n", kOk},
            {"vendor", "ATI&F VID \"Acme\"\r\n", kOk},
            {"model", "ATI&F MID \"Pardo7\"\r\n", kOk},
            {"serial", "ATI&F SN \"PD7-0042\"\r\n", kOk},
            {"hardware", "ATI&F HW \"2.1\"\r\n", kOk},
            {"advertising", "ADV&F PERS {02020504002A0000000300000000}\r\n", kOk},
            {"back to data mode", "ATO\r\n", kOk},
            {"data mode again", "BT\r\n", ""},
            {"escape again", "+++", kOk},
            {"changes kept", "BT\r\n", changed},
            {"information", "ATI\r\n",
             "PELL BLE Module\r\nPID=\"BLE\"\r\nVID=\"Acme\"\r\nMID=\"Pardo7\"\r\n"
             "SN=\"PD7-0042\"\r\nHW=\"2.1\"\r\nFW=\"1.4.2\"\r\nADDR=\"@\"\r\nOK\r\n"},
            {"empty name", "BT FNAME \"\"\r\n", kInvalid},
            {"long name", "BT FNAME \"" + QByteArray(33, 'n') + "\"\r\n", kInvalid},
            {"unquoted name", "BT FNAME Rover\r\n", kInvalid},
            {"quote in name", "BT FNAME \"a\"b\"\r\n", kInvalid},
            {"short pin", "BT PIN \"12345\"\r\n", kInvalid},
            {"pin not digits", "BT PIN \"12345x\"\r\n", kInvalid},
            {"long pin", "BT PIN \"12345678901234567\"\r\n", kInvalid},
            {"radio word", "BT&F RADIO MAYBE\r\n", kInvalid},
            {"long identity", "ATI&F SN \"" + QByteArray(33, 's') + "\"\r\n", kInvalid},
            {"lower-case hex", "ADV&F PERS {02020504002a0000000300000000}\r\n", kInvalid},
            {"short data", "ADV&F PERS {0202}\r\n", kInvalid},
            {"argument to none", "ATI PID now\r\n", kInvalid},
            {"unknown", "AT+GMR\r\n", kUnknown},
            {"unknown second word", "BT FOO \"x\"\r\n", kUnknown},
            {"not text", "\xff\xfe\r\n", kUnknown},
            {"refusals changed nothing", "BT\r\n", changed},
        },
        address);
    const QByteArray advertising = QByteArray::fromHex("02020504002A0000000300000000");
    EXPECT_EQ(module->Settings().advertising, advertising);

    // Another pass-through session, on a new controller connection: nothing forgotten.
    session.Close();
    session.Reconnect();
    session.Open();
    session.Run({{"still awake", "\r\n", kOk}, {"still changed", "BT\r\n", changed}}, address);

    session.Run(
        {
            {"factory restart", "BOOT INIT\r\n", kOk},
            {"restarted in data mode", "BT\r\n", ""},
            {"escape", "+++", kOk},
            {"factory settings", "BT\r\n",
             "FNAME=\"PELL-BLE\"\r\nPIN=\"\"\r\nADDR=\"@\"\r\nRADIO=on\r\nOK\r\n"},
        },
        address);
    EXPECT_EQ(module->Settings(), rxsim::BleSettings());
    session.Close();
}

// Each knob on its own, switched on for one exchange, with the module awake.
TEST_P(BleModule, ShowsEachFault) {
    ModuleSession session(GetParam().link, QString::fromLatin1(GetParam().profile),
                          QString::fromLatin1(GetParam().port));
    rxsim::CBleModule* module = session.bench.simulator.BleModule();
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(session.Say("+++", 4), kOk);
    const struct {
        const char* knob;
        bool rxsim::ModuleFaults::*fault;
        QByteArray say;
        QByteArray hear;
    } cases[] = {
        {"splitReplies", &rxsim::ModuleFaults::splitReplies, "ATI PID\r\n", "\"BLE\"\r\nOK\r\n"},
        {"errorBeforeOk", &rxsim::ModuleFaults::errorBeforeOk, "BT PIN \"\"\r\n",
         "ERROR=BUSY\r\nOK\r\n"},
        {"errorBeforeOk on an error", &rxsim::ModuleFaults::errorBeforeOk, "BT PIN 1\r\n",
         "ERROR=BUSY\r\n" + kInvalid},
        {"notBle", &rxsim::ModuleFaults::notBle, "ATI PID\r\n", "\"SPP\"\r\nOK\r\n"},
        {"silent", &rxsim::ModuleFaults::silent, "ATO\r\n", ""},
        {"silent, awake all along", &rxsim::ModuleFaults::silent, "+++", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.knob);
        module->GetFaults().*c.fault = true;
        int pieces = 0;
        EXPECT_EQ(session.Say(c.say, c.hear.size(), &pieces), c.hear);
        module->GetFaults().*c.fault = false;
        if (c.fault == &rxsim::ModuleFaults::splitReplies) {
            EXPECT_GT(pieces, 1);
        }
    }
    // What the silent module never heard, it never did.
    EXPECT_TRUE(module->InCommandMode());
    EXPECT_EQ(session.Say("ATI PID\r\n", 11), "\"BLE\"\r\nOK\r\n");
    session.Close();
}

INSTANTIATE_TEST_SUITE_P(Ports, BleModule,
                         testing::Values(Where{Bench::InProcess, "pardo7", "dev/ble/a"},
                                         Where{Bench::Pty, "lumen7", "dev/ser/d"}),
                         WhereName);

class ClassicModule : public testing::TestWithParam<Bench::ELink> {};

TEST_P(ClassicModule, AnswersItsCommandsInItsFraming) {
    ModuleSession session(GetParam(), QStringLiteral("marten"), QStringLiteral("dev/ser/c"));
    rxsim::CClassicBtModule* module = session.bench.simulator.ClassicModule();
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(session.bench.simulator.BleModule(), nullptr);
    const QByteArray ok = "\r\nOK\r\n";
    const QByteArray error = "\r\nERROR\r\n";
    session.Run({
        {"identification", "ati\r\n", "\r\nPELL BT-C Module 2.3\r\n\n"},
        {"name", "print,btname\r\n", "\r\nPELL-BT\r\n"},
        {"no pin", "print,btpin\r\n", "\r\nNoPinSet\r\n"},
        {"authentication", "print,btauthentic\r\n", "\r\nOFF\r\n"},
        {"set name, commas and all", "set,btname,Crew 7, base\r\n", ok},
        {"name read back", "print,btname\r\n", "\r\nCrew 7, base\r\n"},
        {"set pin", "set,btpin,4711\r\n", ok},
        {"pin read back", "print,btpin\r\n", "\r\n4711\r\n"},
        {"clear pin", "set,btpin,\r\n", ok},
        {"pin cleared", "print,btpin\r\n", "\r\nNoPinSet\r\n"},
        {"any case, a lone LF", "SET,BTENCRYPT,On\n", ok},
        {"encryption read back, a lone CR", "print,btencrypt\r", "\r\nON\r\n"},
        {"bare line ending", "\r\n", ""},
        {"empty name", "set,btname,\r\n", error},
        {"long pin", "set,btpin,12345678901234567\r\n", error},
        {"switch word", "set,btauthentic,1\r\n", error},
        {"print with a value", "print,btname,x\r\n", error},
        {"unknown parameter", "print,btmac\r\n", error},
        {"no escape here", "+++\r\n", error},
        {"unknown", "hello\r\n", error},
    });

    module->GetFaults().splitReplies = true;
    int pieces = 0;
    EXPECT_EQ(session.Say("print,btencrypt\r\n", 6, &pieces), "\r\nON\r\n");
    EXPECT_GT(pieces, 1);
    module->GetFaults().splitReplies = false;
    module->GetFaults().silent = true;
    EXPECT_EQ(session.Say("set,btname,Ghost\r\n", 0), "");
    module->GetFaults().silent = false;

    EXPECT_EQ(module->Settings(),
              (rxsim::ClassicBtSettings{QStringLiteral("Crew 7, base"), {}, false, true}));
    session.Close();
}

INSTANTIATE_TEST_SUITE_P(Links, ClassicModule, testing::Values(Bench::InProcess, Bench::Pty),
                         pell::test::LinkName);

// Only a profile whose port carries a module has one.
TEST(BluetoothModules, FollowTheProfile) {
    const struct {
        const char* profile;
        bool ble;
        bool classic;
    } cases[] = {
        {"ostrel-q", true, false},
        {"lumen7", true, false},
        {"marten", false, true},
        {"soren", false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.profile);
        rxsim::CSimulator simulator(pell::test::ShippedModel(), QString::fromLatin1(c.profile));
        EXPECT_EQ(simulator.BleModule() != nullptr, c.ble);
        EXPECT_EQ(simulator.ClassicModule() != nullptr, c.classic);
    }
}

} // namespace
