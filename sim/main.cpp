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
#include <cmath>
#include <map>
#include <memory>
#include <numbers>
#include <optional>
#include <stdexcept>

namespace {

int Fail(const QString& message) {
    QTextStream(stderr) << "rxsim: " << message << '\n';
    return 2;
}

// A whole number of at least `min` given to `option`, or a reason to stop.
std::optional<int> Number(const QCommandLineParser& parser, const QCommandLineOption& option,
                          int min, QString& error) {
    bool ok = false;
    const QString text = parser.value(option);
    const int value = text.toInt(&ok);
    if (ok && value >= min)
        return value;
    error = QStringLiteral("--%1 wants a whole number of at least %2, not \"%3\"")
                .arg(option.names().constFirst())
                .arg(min)
                .arg(text);
    return std::nullopt;
}

struct Endpoint {
    QHostAddress address;
    quint16 port = 0;
};

// "127.0.0.1:8002", "localhost:8002", "[::1]:8002"; port 0 lets the system choose.
std::optional<Endpoint> ParseEndpoint(const QString& text, QString& error) {
    const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
    QString host = text.left(colon);
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
        host = host.mid(1, host.size() - 2);
    const QHostAddress address = host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0
                                     ? QHostAddress(QHostAddress::LocalHost)
                                     : QHostAddress(host);
    bool ok = false;
    const uint port = text.mid(colon + 1).toUInt(&ok);
    if (colon < 0 || address.isNull()) {
        error = QStringLiteral("--listen wants ADDRESS:PORT (127.0.0.1:8002, localhost:8002, "
                               "[::1]:8002), not \"%1\"")
                    .arg(text);
        return std::nullopt;
    }
    if (!ok || port > 65535) {
        error = QStringLiteral("--listen port must be 1 to 65535 (0: any free port), not \"%1\"")
                    .arg(text.mid(colon + 1));
        return std::nullopt;
    }
    return Endpoint{address, static_cast<quint16>(port)};
}

// "LAT,LON,HEIGHT": degrees north, degrees east, metres above the ellipsoid.
std::optional<vex::POS_GEO> ParseObserver(const QString& text, QString& error) {
    const QStringList parts = text.split(QLatin1Char(','));
    double values[3] = {};
    bool ok = parts.size() == 3;
    for (int i = 0; ok && i < 3; ++i)
        values[i] = parts[i].trimmed().toDouble(&ok);
    constexpr double kDeg = std::numbers::pi / 180.0;
    if (ok && std::abs(values[0]) <= 90 && std::abs(values[1]) <= 180 && values[2] >= -1000 &&
        values[2] <= 100000)
        return vex::POS_GEO{values[0] * kDeg, values[1] * kDeg, values[2]};
    error = QStringLiteral("--observer wants LAT,LON,HEIGHT (degrees -90 to 90, -180 to 180, "
                           "metres -1000 to 100000, with a decimal point), not \"%1\"")
                .arg(text);
    return std::nullopt;
}

QString Printable(const QHostAddress& address, quint16 port) {
    const QString host = address.protocol() == QAbstractSocket::IPv6Protocol
                             ? QLatin1Char('[') + address.toString() + QLatin1Char(']')
                             : address.toString();
    return host + QLatin1Char(':') + QString::number(port);
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("rxsim"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Simulated GNSS receiver."));
    parser.addHelpOption();
    const QCommandLineOption listen("listen",
                                    "Serve one controller at a time over TCP at ADDR:PORT "
                                    "(loopback only unless --any-address; port 0: any free).",
                                    "ADDR:PORT");
    const QCommandLineOption anyAddress("any-address", "Allow --listen on a non-loopback address.");
    const QCommandLineOption pty("pty", "Create a pseudo-terminal and print its path.");
    const QCommandLineOption profile("profile", "Receiver profile (see --list-profiles).", "NAME");
    const QCommandLineOption list("list-profiles", "List the receiver profiles and exit.");
    const QCommandLineOption model("model", "Parameter model file.", "FILE");
    const QCommandLineOption latency("latency", "Delay every answer by MS.", "MS");
    const QCommandLineOption baud("baud", "Pace the link at RATE baud.", "RATE");
    const QCommandLineOption dropAfter("drop-after", "Drop each connection after its Nth command.",
                                       "N");
    const QCommandLineOption dropAt("drop-at", "Drop each connection MS after it starts.", "MS");
    const QCommandLineOption resetAt("reset-at", "Announce a reset MS after a connection starts.",
                                     "MS");
    const QCommandLineOption garbage("garbage-every", "Send garbage bytes every MS.", "MS");
    const QCommandLineOption silent("silent", "Never answer commands naming PATH.", "PATH");
    const QCommandLineOption observer("observer",
                                      "Observer position: latitude and longitude in degrees, "
                                      "height in metres.",
                                      "LAT,LON,HEIGHT");
    const QCommandLineOption hide("hide", "Leave the satellite USI out of the sky.", "USI");
    const QCommandLineOption moduleFault("module-fault",
                                         "Make the Bluetooth module show KNOB: splitReplies, "
                                         "errorBeforeOk, silent or notBle.",
                                         "KNOB");
    parser.addOptions({listen, anyAddress, pty, profile, list, model, latency, baud, dropAfter,
                       dropAt, resetAt, garbage, silent, observer, hide, moduleFault});
    parser.process(app);
    if (!parser.positionalArguments().isEmpty())
        return Fail(QStringLiteral("unexpected argument \"%1\"")
                        .arg(parser.positionalArguments().constFirst()));

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
    if (parser.isSet(listen) && parser.isSet(pty))
        return Fail(QStringLiteral("--listen and --pty exclude each other: give one"));
    if (!parser.isSet(listen) && !parser.isSet(pty))
        return Fail(QStringLiteral("give --listen ADDR:PORT or --pty"));
    if (parser.isSet(anyAddress) && !parser.isSet(listen))
        return Fail(QStringLiteral("--any-address goes with --listen"));

    // Every number first, so that a mistake is told before anything starts.
    QString error;
    rxsim::Faults faults;
    const struct {
        const QCommandLineOption& option;
        int min;
        int* into;
    } numbers[] = {
        {latency, 0, &faults.latencyMs},           {baud, 1, &faults.baud},
        {dropAfter, 1, &faults.dropAfterCommands}, {dropAt, 0, &faults.dropAtMs},
        {resetAt, 0, &faults.resetAtMs},           {garbage, 1, &faults.garbageEveryMs},
    };
    for (const auto& n : numbers) {
        if (!parser.isSet(n.option))
            continue;
        const auto value = Number(parser, n.option, n.min, error);
        if (!value)
            return Fail(error);
        *n.into = *value;
    }
    for (const QString& path : parser.values(silent))
        faults.silentPaths.insert(path);
    for (const QString& text : parser.values(hide)) {
        bool ok = false;
        const int usi = text.toInt(&ok);
        if (!ok || usi < 1 || usi > 254)
            return Fail(
                QStringLiteral("--hide wants a satellite's USI, 1 to 254, not \"%1\"").arg(text));
        faults.hiddenSatellites.insert(usi);
    }
    std::optional<vex::POS_GEO> site;
    if (parser.isSet(observer) && !(site = ParseObserver(parser.value(observer), error)))
        return Fail(error);

    std::unique_ptr<rxsim::CSimulator> simulator;
    try {
        simulator = std::make_unique<rxsim::CSimulator>(
            receiverModel,
            parser.isSet(profile) ? parser.value(profile) : receiverModel->Profiles().front().name);
    } catch (const std::exception& e) {
        return Fail(QString::fromUtf8(e.what()));
    }
    simulator->GetFaults() = faults;
    for (const QString& knob : parser.values(moduleFault)) {
        static const std::map<QString, bool rxsim::ModuleFaults::*> knobs = {
            {QStringLiteral("splitReplies"), &rxsim::ModuleFaults::splitReplies},
            {QStringLiteral("errorBeforeOk"), &rxsim::ModuleFaults::errorBeforeOk},
            {QStringLiteral("silent"), &rxsim::ModuleFaults::silent},
            {QStringLiteral("notBle"), &rxsim::ModuleFaults::notBle},
        };
        const auto found = knobs.find(knob);
        if (found == knobs.end())
            return Fail(QStringLiteral("--module-fault wants splitReplies, errorBeforeOk, silent "
                                       "or notBle, not \"%1\"")
                            .arg(knob));
        rxsim::CPortModule* modules[] = {simulator->BleModule(), simulator->ClassicModule()};
        if (!modules[0] && !modules[1])
            return Fail(QStringLiteral("--module-fault: profile %1 has no Bluetooth module")
                            .arg(simulator->State().GetProfile().name));
        for (rxsim::CPortModule* module : modules)
            if (module)
                module->GetFaults().*found->second = true;
    }
    if (site)
        simulator->Sky().SetObserver(*site);

    QTcpServer server;
    std::unique_ptr<QTcpSocket> client;
    std::unique_ptr<rxsim::CPty> terminal;
    if (parser.isSet(listen)) {
        const auto endpoint = ParseEndpoint(parser.value(listen), error);
        if (!endpoint)
            return Fail(error);
        if (!endpoint->address.isLoopback() && !parser.isSet(anyAddress))
            return Fail(QStringLiteral("refusing a non-loopback address without --any-address"));
        if (!server.listen(endpoint->address, endpoint->port))
            return Fail(QStringLiteral("cannot listen on %1: %2")
                            .arg(parser.value(listen), server.errorString()));
        QObject::connect(&server, &QTcpServer::newConnection, [&] {
            while (QTcpSocket* next = server.nextPendingConnection()) {
                if (client && client->state() == QAbstractSocket::ConnectedState) {
                    // One controller at a time, as on a receiver's port: the session goes on,
                    // the newcomer is told why and let go.
                    QObject::connect(next, &QTcpSocket::disconnected, next, &QObject::deleteLater);
                    next->write(rxsim::EncodeFrame("ER", {}, "{6,,port busy}"));
                    next->disconnectFromHost();
                    continue;
                }
                next->setSocketOption(QAbstractSocket::LowDelayOption, 1);
                simulator->Serve(next);
                client.reset(next);
            }
        });
        QTextStream(stdout) << "listening on "
                            << Printable(server.serverAddress(), server.serverPort()) << Qt::endl;
    } else {
        try {
            terminal = std::make_unique<rxsim::CPty>();
        } catch (const std::exception& e) {
            return Fail(QString::fromUtf8(e.what()));
        }
        simulator->Serve(terminal.get());
        QTextStream(stdout) << terminal->SlavePath() << Qt::endl;
    }
    return QCoreApplication::exec();
}
