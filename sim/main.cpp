// rxsim: the simulated receiver as a program, over TCP or a pseudo-terminal.
#include "Model.h"
#include "Pty.h"
#include "Simulator.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTextStream>
#include <QTimer>
#include <memory>
#include <stdexcept>

namespace {

int Fail(const QString& message) {
    QTextStream(stderr) << "rxsim: " << message << '\n';
    return 2;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("rxsim"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Simulated GNSS receiver."));
    parser.addHelpOption();
    const QCommandLineOption listen("listen",
                                    "Serve one controller over TCP at ADDR:PORT "
                                    "(loopback only unless --any-address).",
                                    "ADDR:PORT");
    const QCommandLineOption anyAddress("any-address", "Allow --listen on a non-loopback address.");
    const QCommandLineOption pty("pty", "Create a pseudo-terminal and print its path.");
    const QCommandLineOption profile("profile", "Receiver profile (see --list-profiles).", "NAME");
    const QCommandLineOption list("list-profiles", "List the receiver profiles and exit.");
    const QCommandLineOption model("model", "Parameter model file.", "FILE");
    const QCommandLineOption latency("latency", "Delay every answer by MS.", "MS");
    const QCommandLineOption baud("baud", "Pace the link at RATE baud.", "RATE");
    const QCommandLineOption dropAfter("drop-after", "Drop the connection after N commands.", "N");
    const QCommandLineOption dropAt("drop-at", "Drop the connection MS after it starts.", "MS");
    const QCommandLineOption resetAt("reset-at", "Announce a reset MS after the start.", "MS");
    const QCommandLineOption garbage("garbage-every", "Send garbage bytes every MS.", "MS");
    const QCommandLineOption silent("silent", "Never answer commands naming PATH.", "PATH");
    parser.addOptions({listen, anyAddress, pty, profile, list, model, latency, baud, dropAfter,
                       dropAt, resetAt, garbage, silent});
    parser.process(app);

    std::shared_ptr<rxsim::CModel> receiverModel;
    try {
        receiverModel = std::make_shared<rxsim::CModel>(rxsim::CModel::Load(
            parser.isSet(model) ? parser.value(model) : rxsim::CModel::DefaultFile()));
    } catch (const std::exception& e) {
        return Fail(QString::fromUtf8(e.what()));
    }
    if (parser.isSet(list)) {
        QTextStream out(stdout);
        for (const auto& p : receiverModel->Profiles())
            out << p.name << "\t" << p.model << "\t" << p.firmware << "\t" << p.features.join(',')
                << '\n';
        return 0;
    }

    std::unique_ptr<rxsim::CSimulator> simulator;
    try {
        simulator = std::make_unique<rxsim::CSimulator>(
            receiverModel,
            parser.isSet(profile) ? parser.value(profile) : receiverModel->Profiles().front().name);
    } catch (const std::exception& e) {
        return Fail(QString::fromUtf8(e.what()));
    }
    rxsim::Faults& faults = simulator->GetFaults();
    faults.latencyMs = parser.value(latency).toInt();
    faults.baud = parser.value(baud).toInt();
    faults.dropAfterCommands = parser.isSet(dropAfter) ? parser.value(dropAfter).toInt() : -1;
    for (const QString& path : parser.values(silent))
        faults.silentPaths.insert(path);
    if (parser.isSet(dropAt))
        simulator->DropAfter(parser.value(dropAt).toInt());
    if (parser.isSet(resetAt))
        QTimer::singleShot(parser.value(resetAt).toInt(), simulator.get(),
                           &rxsim::CSimulator::AnnounceReset);
    if (parser.isSet(garbage)) {
        auto* timer = new QTimer(simulator.get());
        QObject::connect(timer, &QTimer::timeout, simulator.get(),
                         [&] { simulator->InjectGarbage("\x01GARBAGE}{%RE\xff\n"); });
        timer->start(parser.value(garbage).toInt());
    }

    QTcpServer server;
    std::unique_ptr<QTcpSocket> client;
    std::unique_ptr<rxsim::CPty> terminal;
    if (parser.isSet(listen)) {
        const QString def = parser.value(listen);
        const QHostAddress address(def.section(QLatin1Char(':'), 0, -2));
        const quint16 port = static_cast<quint16>(def.section(QLatin1Char(':'), -1).toUInt());
        if (address.isNull())
            return Fail(QStringLiteral("bad address ") + def);
        if (!address.isLoopback() && !parser.isSet(anyAddress))
            return Fail(QStringLiteral("refusing a non-loopback address without --any-address"));
        if (!server.listen(address, port))
            return Fail(server.errorString());
        QObject::connect(&server, &QTcpServer::newConnection, [&] {
            std::unique_ptr<QTcpSocket> next(server.nextPendingConnection());
            next->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            simulator->Serve(next.get());
            client = std::move(next); // one controller at a time: the newest wins
        });
        QTextStream(stdout) << "listening on " << server.serverAddress().toString() << ':'
                            << server.serverPort() << Qt::endl;
    } else if (parser.isSet(pty)) {
        try {
            terminal = std::make_unique<rxsim::CPty>();
        } catch (const std::exception& e) {
            return Fail(QString::fromUtf8(e.what()));
        }
        simulator->Serve(terminal.get());
        QTextStream(stdout) << terminal->SlavePath() << Qt::endl;
    } else {
        return Fail(QStringLiteral("give --listen ADDR:PORT or --pty"));
    }
    return QCoreApplication::exec();
}
