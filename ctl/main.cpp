// pellctl: the receiver's sky and the almanac's prediction, without windows.
#include "InProcess.h"
#include "Model.h"
#include "Predict.h"
#include "Sky.h"
#include "lib/PellLibDoc.h"
#include "receiver/Connection.h"
#include "receiver/LiveData.h"
#include "receiver/TargetOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <limits>
#include <stdexcept>

namespace {

// Exit statuses, as docs/pellctl.md tells users.
constexpr int kDone = 0;
constexpr int kNothingArrived = 1;
constexpr int kCouldNotRun = 2;

volatile std::sig_atomic_t g_stopRequested = 0;

void RequestStop(int) {
    g_stopRequested = 1;
}

int Fail(const QString& message) {
    std::fprintf(stderr, "pellctl: %s\n", message.toLocal8Bit().constData());
    return kCouldNotRun;
}

// One line still: the hint where to read more follows the message.
int FailWithUsage(const QString& message, const char* command) {
    return Fail(QStringLiteral("%1 See 'pellctl %2--help'.").arg(message, QLatin1String(command)));
}

// False when standard output is gone (a closed pipe): nobody reads any more.
bool Write(const QByteArray& bytes) {
    return std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout) ==
               static_cast<std::size_t>(bytes.size()) &&
           std::fflush(stdout) == 0;
}

void Print(const QString& text) {
    Write(text.toLocal8Bit());
}

// The parser's help with the command in its usage line, not the program's path.
void PrintHelp(const QCommandLineParser& parser, const char* command) {
    const QString help = parser.helpText();
    Print(QStringLiteral("Usage: pellctl %1 [options]").arg(QLatin1String(command)) +
          help.mid(help.indexOf(QLatin1Char('\n'))));
}

// Reads a command's options; the exit status when it ends there (help, or a mistake).
std::optional<int> Parse(QCommandLineParser& parser, const QStringList& arguments,
                         const QCommandLineOption& help, const char* command) {
    const QString hint = QLatin1String(command) + QLatin1Char(' ');
    if (!parser.parse(arguments))
        return FailWithUsage(parser.errorText(), qPrintable(hint));
    if (parser.isSet(help)) {
        PrintHelp(parser, command);
        return kDone;
    }
    if (parser.positionalArguments().size() > 1)
        return FailWithUsage(
            QStringLiteral("unexpected argument \"%1\".").arg(parser.positionalArguments()[1]),
            qPrintable(hint));
    return std::nullopt;
}

const char kUsage[] = R"(Usage: pellctl COMMAND [options]

The receiver's sky and the almanac's prediction, without windows.

Commands:
  sky       connect to a receiver, ask for live data and print its sky once per epoch
  predict   print where the satellites of a YUMA or SEM almanac stand at a moment

'pellctl COMMAND --help' tells a command's options.
Exit status: 0 done, 1 sky: no sky arrived, 2 could not run.
)";

// A positive whole number of seconds, digits only.
std::optional<int> Seconds(const QString& text) {
    // The longest a timer's milliseconds can count: about 24 days.
    static constexpr int kMaxSeconds = std::numeric_limits<int>::max() / 1000;
    if (text.isEmpty() || text.size() > 9 ||
        !std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); }))
        return std::nullopt;
    const int value = text.toInt();
    return value >= 1 && value <= kMaxSeconds ? std::optional<int>(value) : std::nullopt;
}

int RunSky(QStringList arguments) {
    std::shared_ptr<const rxsim::CModel> model;
    try {
        model = std::make_shared<const rxsim::CModel>(
            rxsim::CModel::Load(rxsim::CModel::DefaultFile()));
    } catch (const std::runtime_error& e) {
        return Fail(QString::fromUtf8(e.what()));
    }
    QStringList profiles;
    for (const rxsim::Profile& profile : model->Profiles())
        profiles << profile.name;

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Connects to a receiver, asks it for live data and prints its sky once "
                       "per epoch: a header line with the epoch's UTC time and fix, then each "
                       "satellite's system, number, azimuth, elevation, signal strengths and "
                       "whether the position uses it. Exit status: 0 done, 1 no sky arrived, "
                       "2 could not connect or the connection was lost."));
    const QCommandLineOption help = parser.addHelpOption();
    const pell::CTargetOptions targets(profiles);
    targets.AddTo(parser);
    const QCommandLineOption secondsOption(
        QStringLiteral("seconds"), QStringLiteral("Stop after N seconds (default: until SIGINT)."),
        QStringLiteral("N"));
    const QCommandLineOption jsonOption(QStringLiteral("json"),
                                        QStringLiteral("One JSON object per epoch per line."));
    parser.addOptions({secondsOption, jsonOption});

    targets.JoinSimulatorProfile(arguments, {QStringLiteral("--seconds")});
    if (const std::optional<int> stop = Parse(parser, arguments, help, "sky"))
        return *stop;
    QString error;
    const std::optional<pell::ReceiverTarget> target = targets.Read(parser, error);
    if (!error.isEmpty())
        return FailWithUsage(error, "sky ");
    if (!target)
        return FailWithUsage(QStringLiteral("sky needs a receiver: --simulator, --connect or "
                                            "--serial."),
                             "sky ");
    std::optional<int> seconds;
    if (parser.isSet(secondsOption)) {
        seconds = Seconds(parser.value(secondsOption));
        if (!seconds)
            return FailWithUsage(QStringLiteral("--seconds takes a whole number of seconds "
                                                "from 1 to 2147483 (24 days), not \"%1\".")
                                     .arg(parser.value(secondsOption)),
                                 "sky ");
    }
    const bool json = parser.isSet(jsonOption);

    pell::Connection connection(rxsim::InProcessReceivers(model));
    int epochs = 0;
    bool outputGone = false;
    std::shared_ptr<pellctl::CEpochCollector> collector;
    bool finished = false;
    // `failure`: why it could not run; otherwise `ifNothing` is the note when no sky came.
    const auto finish = [&](const QString& failure, const QString& ifNothing) {
        if (std::exchange(finished, true))
            return;
        if (connection.State() == pell::Connection::EState::Connected)
            pell::StopLiveData(*connection.Receiver());
        // Closing hands out the epoch under way.
        connection.Close();
        collector->Flush();
        const QString note = !failure.isEmpty() ? failure : epochs == 0 ? ifNothing : QString();
        if (!note.isEmpty())
            std::fprintf(stderr, "pellctl: %s\n", note.toLocal8Bit().constData());
        QCoreApplication::exit(!failure.isEmpty() ? kCouldNotRun
                               : epochs == 0      ? kNothingArrived
                                                  : kDone);
    };
    collector = std::make_shared<pellctl::CEpochCollector>(
        [&](const pellctl::Epoch& epoch) {
            if (outputGone)
                return;
            ++epochs;
            // Nobody reads any more. The connection is in the middle of its call: end later.
            if (!Write(json ? pellctl::EpochJson(epoch) : pellctl::EpochText(epoch))) {
                outputGone = true;
                QTimer::singleShot(0, [&finish] { finish({}, {}); });
            }
        },
        [&collector] { QTimer::singleShot(0, [&collector] { collector->Flush(); }); });
    QObject::connect(&connection, &pell::Connection::stateChanged, [&] {
        if (finished)
            return;
        const QString where = connection.Target().Describe();
        switch (connection.State()) {
        case pell::Connection::EState::Connected:
            connection.Receiver()->RegisterSatListListener(collector);
            connection.Receiver()->RegisterPositionListener(collector);
            pell::StartLiveData(*connection.Receiver());
            break;
        case pell::Connection::EState::Closed:
            finish(QStringLiteral("could not connect to %1: %2").arg(where, connection.Message()),
                   {});
            break;
        case pell::Connection::EState::Lost:
            finish(QStringLiteral("lost the connection to %1: %2").arg(where, connection.Message()),
                   {});
            break;
        case pell::Connection::EState::Connecting:
            break;
        }
    });

    std::signal(SIGINT, RequestStop);
    std::signal(SIGTERM, RequestStop);
    QTimer stopPoll;
    QObject::connect(&stopPoll, &QTimer::timeout, [&] {
        if (g_stopRequested)
            finish({}, QStringLiteral("stopped before any sky arrived."));
    });
    stopPoll.start(100);
    if (seconds)
        QTimer::singleShot(*seconds * 1000, [&] {
            finish({}, QStringLiteral("no sky arrived within %1 s.").arg(*seconds));
        });
    QTimer::singleShot(0, [&] { connection.Open(*target); });
    return QCoreApplication::exec();
}

int RunPredict(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Prints the azimuth and elevation (degrees) of every satellite of a YUMA or SEM almanac "
        "file, seen from an observer at a moment, and marks those above the horizon."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption almanac(QStringLiteral("almanac"),
                                     QStringLiteral("The almanac file, YUMA or SEM."),
                                     QStringLiteral("FILE"));
    const QCommandLineOption at(QStringLiteral("at"),
                                QStringLiteral("The moment, ISO 8601 UTC: 2020-01-01T12:00:00Z."),
                                QStringLiteral("TIME"));
    const QCommandLineOption observer(
        QStringLiteral("observer"),
        QStringLiteral("Latitude and longitude in degrees, height above the ellipsoid in metres: "
                       "47.3769,8.5417,408."),
        QStringLiteral("LAT,LON,HEIGHT"));
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("One JSON object on one line."));
    parser.addOptions({almanac, at, observer, json});
    if (const std::optional<int> stop = Parse(parser, arguments, help, "predict"))
        return *stop;
    for (const QCommandLineOption& required : {almanac, at, observer})
        if (!parser.isSet(required))
            return FailWithUsage(
                QStringLiteral("predict needs --%1.").arg(required.names().front()), "predict ");
    const std::optional<QDateTime> moment = pellctl::ParseUtc(parser.value(at));
    if (!moment)
        return FailWithUsage(QStringLiteral("--at takes a UTC time after 1980-01-06 such as "
                                            "2020-01-01T12:00:00Z, not \"%1\".")
                                 .arg(parser.value(at)),
                             "predict ");
    const std::optional<vex::POS_GEO> place = pellctl::ParseObserver(parser.value(observer));
    if (!place)
        return FailWithUsage(QStringLiteral("--observer takes LAT,LON,HEIGHT in degrees and "
                                            "metres such as 47.3769,8.5417,408, not \"%1\".")
                                 .arg(parser.value(observer)),
                             "predict ");
    rxio::CAlmanacStorage store;
    try {
        store.LoadFile(parser.value(almanac), rxio::GpsTime::FromUtc(*moment).Week());
    } catch (const rxio::CAlmanacError& e) {
        return Fail(QString::fromUtf8(e.what()));
    }
    const auto predictions = pellctl::Predict(store, *moment, *place);
    Write(parser.isSet(json) ? pellctl::PredictionJson(predictions, *moment, *place)
                             : pellctl::PredictionText(predictions));
    return kDone;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pellctl"));
    QCoreApplication::setApplicationVersion(CPellLibDoc::GetApplicationVersion(false));
    // A receiver that speaks only NMEA leaves every command unanswered: that is no news here.
    // QT_LOGGING_RULES still turns the traffic log on.
    QLoggingCategory::setFilterRules(QStringLiteral("pell.rxio.warning=false"));
    std::signal(SIGPIPE, SIG_IGN);

    QStringList arguments = QCoreApplication::arguments();
    const QString command = arguments.size() > 1 ? arguments[1] : QString();
    if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
        Print(QString::fromLatin1(kUsage));
        return kDone;
    }
    if (command == QLatin1String("--version")) {
        Print(QStringLiteral("pellctl %1\n").arg(QCoreApplication::applicationVersion()));
        return kDone;
    }
    if (command == QLatin1String("sky"))
        return RunSky(arguments);
    if (command == QLatin1String("predict"))
        return RunPredict(arguments);
    return FailWithUsage(command.isEmpty() ? QStringLiteral("which command: sky or predict?")
                                           : QStringLiteral("unknown command \"%1\".").arg(command),
                         "");
}
