// pellctl: the receiver's sky, its settings and the almanac's prediction, without windows.
#include "InProcess.h"
#include "Model.h"
#include "Predict.h"
#include "Sky.h"
#include "config/SettingsFile.h"
#include "config/SettingsImport.h"
#include "config/VexReceiverAccessor.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLibDoc.h"
#include "receiver/Connection.h"
#include "receiver/LiveData.h"
#include "receiver/TargetOptions.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <limits>
#include <stdexcept>
#include <stop_token>
#include <unistd.h>

namespace {

// Exit statuses, as docs/pellctl.md tells users.
constexpr int kDone = 0;
constexpr int kNothingArrived = 1;
constexpr int kSomeFailed = 1;
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
void PrintHelp(const QCommandLineParser& parser, const char* command,
               const QStringList& positionals) {
    const QString help = parser.helpText();
    QString usage = QStringLiteral("Usage: pellctl %1 [options]").arg(QLatin1String(command));
    for (const QString& positional : positionals)
        usage += QLatin1Char(' ') + positional;
    Print(usage + help.mid(help.indexOf(QLatin1Char('\n'))));
}

// Reads a command's options and exactly the `positionals` it takes after them; the exit status
// when it ends there (help, or a mistake).
std::optional<int> Parse(QCommandLineParser& parser, const QStringList& arguments,
                         const QCommandLineOption& help, const char* command,
                         const QStringList& positionals = {}) {
    const QString hint = QLatin1String(command) + QLatin1Char(' ');
    if (!parser.parse(arguments))
        return FailWithUsage(parser.errorText(), qPrintable(hint));
    if (parser.isSet(help)) {
        PrintHelp(parser, command, positionals);
        return kDone;
    }
    const QStringList given = parser.positionalArguments().mid(1);
    if (given.size() > positionals.size())
        return FailWithUsage(
            QStringLiteral("unexpected argument \"%1\".").arg(given[positionals.size()]),
            qPrintable(hint));
    if (given.size() < positionals.size())
        return FailWithUsage(
            QStringLiteral("%1 needs %2.")
                .arg(QLatin1String(command), positionals.mid(given.size()).join(QLatin1Char(' '))),
            qPrintable(hint));
    return std::nullopt;
}

const char kUsage[] = R"(Usage: pellctl COMMAND [options]

The receiver's sky and settings, and the almanac's prediction, without windows.

Commands:
  sky       connect to a receiver, ask for live data and print its sky once per epoch
  export    save a receiver's settings to a JSON settings file
  import    write the settings of a JSON settings file to a receiver
  print     print one receiver parameter
  set       set one receiver parameter to a value as the receiver prints it
  predict   print where the satellites of a YUMA or SEM almanac stand at a moment

'pellctl COMMAND --help' tells a command's options.
Exit status: 0 done, 1 sky: no sky arrived, export and import: some variables failed,
print and set: the receiver refused, 2 could not run.
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

// The simulator's model, whose profiles --simulator names; nullptr after the error is told.
std::shared_ptr<const rxsim::CModel> LoadModel() {
    try {
        return std::make_shared<const rxsim::CModel>(
            rxsim::CModel::Load(rxsim::CModel::DefaultFile()));
    } catch (const std::runtime_error& e) {
        Fail(QString::fromUtf8(e.what()));
        return nullptr;
    }
}

QStringList ProfileNames(const rxsim::CModel& model) {
    QStringList profiles;
    for (const rxsim::Profile& profile : model.Profiles())
        profiles << profile.name;
    return profiles;
}

int RunSky(QStringList arguments) {
    const std::shared_ptr<const rxsim::CModel> model = LoadModel();
    if (!model)
        return kCouldNotRun;
    const QStringList profiles = ProfileNames(*model);

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

// A bar on standard error while a walk goes on, drawn only when standard error is a terminal:
// a script's log gets nothing.
class CProgressBar {
public:
    CProgressBar() : m_terminal(isatty(fileno(stderr)) != 0) {}
    CProgressBar(const CProgressBar&) = delete;
    CProgressBar& operator=(const CProgressBar&) = delete;
    ~CProgressBar() { Clear(); }

    void Show(int done, int total) {
        if (!m_terminal || total <= 0)
            return;
        static constexpr int kWidth = 30;
        const int filled = done * kWidth / total;
        std::fprintf(stderr, "\r[%s%s] %d/%d", QByteArray(filled, '#').constData(),
                     QByteArray(kWidth - filled, ' ').constData(), done, total);
        std::fflush(stderr);
        m_drawn = true;
    }
    // Erases the bar, so that a line written next starts at the margin.
    void Clear() {
        if (std::exchange(m_drawn, false)) {
            std::fputs("\r\033[K", stderr);
            std::fflush(stderr);
        }
    }

private:
    bool m_terminal;
    bool m_drawn = false;
};

// What a receiver command does once connected: its exit status.
using ReceiverWork =
    std::function<int(const std::shared_ptr<rxio::IReceiver>& receiver, std::stop_token stop)>;

// Connects as any host (PreOpenPort before, PostClosePort after), runs `work` and closes the
// port, whichever way it ends. SIGINT and SIGTERM request a stop through `work`'s token; a
// command waiting for its reply ends with ERROR_CANCELLED.
int WithReceiver(const std::shared_ptr<const rxsim::CModel>& model,
                 const pell::ReceiverTarget& target, const ReceiverWork& work) {
    pell::Connection connection(rxsim::InProcessReceivers(model));
    std::stop_source stop;
    int status = kCouldNotRun;
    bool started = false;
    bool finished = false;
    const auto finish = [&](int result) {
        finished = true;
        status = result;
        connection.Close();
        QCoreApplication::exit();
    };
    QObject::connect(&connection, &pell::Connection::stateChanged, [&] {
        // Once the work runs, its own commands tell a lost connection.
        if (started || finished)
            return;
        const QString where = connection.Target().Describe();
        switch (connection.State()) {
        case pell::Connection::EState::Connected:
            started = true;
            // Not inside the connection's signal: the work waits for replies in its own loops.
            QTimer::singleShot(0, [&] {
                int result = kCouldNotRun;
                try {
                    result = work(connection.Receiver(), stop.get_token());
                } catch (const ulm_std::CWinException& e) {
                    result =
                        Fail(e.GetErrorCode() == pell::ERROR_CANCELLED ? QStringLiteral("stopped.")
                             : e.GetErrorCode() == pell::ERROR_DEV_NOT_EXIST
                                 ? QStringLiteral("lost the connection to %1.").arg(where)
                                 : e.GetErrorMessage());
                }
                finish(result);
            });
            break;
        case pell::Connection::EState::Closed:
            Fail(QStringLiteral("could not connect to %1: %2").arg(where, connection.Message()));
            finish(kCouldNotRun);
            break;
        case pell::Connection::EState::Lost:
            Fail(QStringLiteral("lost the connection to %1: %2").arg(where, connection.Message()));
            finish(kCouldNotRun);
            break;
        case pell::Connection::EState::Connecting:
            break;
        }
    });
    std::signal(SIGINT, RequestStop);
    std::signal(SIGTERM, RequestStop);
    QTimer stopPoll;
    QObject::connect(&stopPoll, &QTimer::timeout, [&] {
        if (!g_stopRequested || stop.stop_requested())
            return;
        stop.request_stop();
        if (!started && !finished) {
            Fail(QStringLiteral("stopped before the receiver answered."));
            finish(kCouldNotRun);
        }
    });
    stopPoll.start(100);
    QTimer::singleShot(0, [&] { connection.Open(target); });
    QCoreApplication::exec();
    return status;
}

// Text from a dictionary or a receiver on one line of ours: its control characters (a tab or
// a line feed that would split a row, an escape that would drive the terminal) become '?'.
QString OneLine(QString text) {
    for (QChar& c : text)
        if (c.unicode() < 0x20 || c.unicode() == 0x7F)
            c = QLatin1Char('?');
    return text;
}

// One row of a settings report: the variable's path, a tab, what became of it.
void PrintRow(const QString& path, const QString& text) {
    Print(OneLine(path) + QLatin1Char('\t') + OneLine(text) + QLatin1Char('\n'));
}

int Export(const std::shared_ptr<rxio::IReceiver>& receiver, std::stop_token stop,
           VOXA2JSON::Object& root, const QString& file) {
    CVexReceiverAccessor accessor(receiver);
    accessor.SetCancel(stop);
    CProgressBar bar;
    const VOXA2JSON::Progress progress = [&](int done, int total) {
        bar.Show(done, total);
        return !stop.stop_requested();
    };
    QString error;
    bool exported = false;
    try {
        exported = VOXA2JSON::ExportSettings(root, accessor, file, progress, &error);
    } catch (const ulm_std::CWinException& e) {
        if (e.GetErrorCode() != pell::ERROR_CANCELLED)
            throw;
    }
    bar.Clear();
    if (!exported)
        return Fail(error.isEmpty() ? QStringLiteral("stopped; %1 was not written.").arg(file)
                                    : error);
    // What this receiver does not have is no failure, as one dictionary serves every model:
    // a variable no binding applies to, or a list item it has not created (a caster user), whose
    // binding applies through its Test path alone. The walk has asked already: no command.
    int failed = 0;
    for (const VOXA2JSON::Variable* variable : VOXA2JSON::SelectedVariables(root)) {
        const VOXA2JSON::Binding* binding = variable->Resolved();
        if (!variable->Has(VOXA2JSON::WriteOnly) && !variable->error.isEmpty() && binding &&
            accessor.Exists(binding->parameter)) {
            PrintRow(variable->Path(), variable->error);
            ++failed;
        }
    }
    return failed ? kSomeFailed : kDone;
}

// As the wizard's progress page: a stop puts back what the import wrote.
int Import(const std::shared_ptr<rxio::IReceiver>& receiver, std::stop_token stop,
           VOXA2JSON::Object& root) {
    CVexReceiverAccessor accessor(receiver);
    accessor.SetCancel(stop);
    VOXA2JSON::CSettingsImport import(root);
    CProgressBar bar;
    int failed = 0;
    try {
        while (!import.AtEnd() && !stop.stop_requested()) {
            bar.Show(import.Done(), import.Total());
            const VOXA2JSON::ImportRow row = import.WriteNext(accessor);
            if (row.outcome == VOXA2JSON::EWriteOutcome::Skipped)
                continue;
            bar.Clear();
            PrintRow(row.path, row.text);
            failed += row.outcome == VOXA2JSON::EWriteOutcome::Failed;
        }
    } catch (const ulm_std::CWinException& e) {
        if (e.GetErrorCode() != pell::ERROR_CANCELLED)
            throw;
    }
    bar.Clear();
    if (!stop.stop_requested())
        return failed ? kSomeFailed : kDone;
    // Without the stop: the receiver is there, and what was written must go back.
    CVexReceiverAccessor restorer(receiver);
    const QStringList notBack = import.Undo(restorer);
    return Fail(notBack.isEmpty()
                    ? QStringLiteral("stopped after %1 of %2 variables; what was written is put "
                                     "back.")
                          .arg(import.Done())
                          .arg(import.Total())
                    : QStringLiteral("stopped after %1 of %2 variables; could not put back %3.")
                          .arg(import.Done())
                          .arg(import.Total())
                          .arg(OneLine(notBack.join(QStringLiteral(", ")))));
}

// Runs one command line built before connecting; its reply on standard output, a refusal's
// reply on standard error.
int RunOne(const std::shared_ptr<rxio::IReceiver>& receiver, std::stop_token stop,
           const QString& command) {
    CVexReceiverMate mate(receiver);
    mate.SetCancel(std::move(stop));
    try {
        const QString reply = mate.Run(command);
        Print(reply.isEmpty() ? reply : reply + QLatin1Char('\n'));
        return kDone;
    } catch (const ulm_std::CCommException& e) {
        std::fprintf(stderr, "pellctl: %s\n", OneLine(e.GetReply()).toLocal8Bit().constData());
        return kSomeFailed;
    }
}

// export, import, print and set: a receiver, and what each does with it.
int RunSettings(QStringList arguments, const QString& command) {
    const std::shared_ptr<const rxsim::CModel> model = LoadModel();
    if (!model)
        return kCouldNotRun;
    const bool isExport = command == QLatin1String("export");
    const bool isImport = command == QLatin1String("import");
    const bool isFile = isExport || isImport;
    const QByteArray name = command.toLatin1();
    const QString hint = command + QLatin1Char(' ');

    QCommandLineParser parser;
    const QStringList positionals =
        isFile ? QStringList{QStringLiteral("FILE")}
        : command == QLatin1String("set")
            ? QStringList{QStringLiteral("PATH"), QStringLiteral("VALUE")}
            : QStringList{QStringLiteral("PATH")};
    static const std::map<QString, QString> descriptions = {
        {QStringLiteral("export"),
         QStringLiteral("Reads the receiver's settings that the dictionary names and saves them "
                        "to FILE as compact JSON. Prints each variable that could not be read "
                        "(path, tab, why). Exit status: 0 saved, 1 saved without some "
                        "variables, 2 nothing saved.")},
        {QStringLiteral("import"),
         QStringLiteral("Writes the settings of FILE to the receiver, in the dictionary's order, "
                        "and prints each variable's path, a tab and \"Successfully Imported\" or "
                        "why not. Exit status: 0 all written, 1 some failed, 2 could not run.")},
        {QStringLiteral("print"),
         QStringLiteral("Prints the receiver parameter PATH as the receiver prints it. Exit "
                        "status: 0 printed, 1 the receiver refused, 2 could not run.")},
        {QStringLiteral("set"),
         QStringLiteral("Sets the receiver parameter PATH to VALUE, written as print shows it "
                        "(texts in double quotes); a VALUE starting with '-' goes after '--'. "
                        "Exit status: 0 set, 1 the receiver refused, 2 could not run.")},
    };
    parser.setApplicationDescription(descriptions.at(command));
    const QCommandLineOption help = parser.addHelpOption();
    const pell::CTargetOptions targets(ProfileNames(*model));
    targets.AddTo(parser);
    const QCommandLineOption all(QStringLiteral("all"),
                                 QStringLiteral("Also the settings left out by default."));
    const QCommandLineOption dictionary(
        QStringLiteral("dictionary"),
        QStringLiteral("The settings dictionary (default: the library's)."),
        QStringLiteral("FILE"));
    if (isFile)
        parser.addOptions({all, dictionary});

    // The word after a bare --simulator may be the FILE or PATH.
    targets.JoinSimulatorProfile(arguments, {QStringLiteral("--dictionary")}, true);
    if (const std::optional<int> stop =
            Parse(parser, arguments, help, name.constData(), positionals))
        return *stop;
    QString error;
    const std::optional<pell::ReceiverTarget> target = targets.Read(parser, error);
    if (!error.isEmpty())
        return FailWithUsage(error, qPrintable(hint));
    if (!target)
        return FailWithUsage(
            QStringLiteral("%1 needs a receiver: --simulator, --connect or --serial.").arg(command),
            qPrintable(hint));
    const QStringList values = parser.positionalArguments().mid(1);

    if (!isFile) {
        // Built before the port opens: a value that would not stay one command never leaves.
        QString line;
        try {
            line = command == QLatin1String("set") ? pell::vexcmd::SetPrinted(values[0], values[1])
                                                   : pell::vexcmd::Print(values[0]);
        } catch (const ulm_std::CWinException& e) {
            return Fail(e.GetErrorMessage());
        }
        return WithReceiver(model, *target, [&line](const auto& receiver, std::stop_token stop) {
            return RunOne(receiver, std::move(stop), line);
        });
    }

    const QString dictionaryFile =
        parser.isSet(dictionary) ? parser.value(dictionary) : VOXA2JSON::Dictionary::DefaultPath();
    const std::shared_ptr<VOXA2JSON::Object> root =
        VOXA2JSON::Dictionary::Load(dictionaryFile, &error);
    if (!root)
        return Fail(QStringLiteral("%1: %2").arg(dictionaryFile, error));
    VOXA2JSON::SelectDefaults(
        *root, isExport ? VOXA2JSON::EDirection::Export : VOXA2JSON::EDirection::Import,
        parser.isSet(all));
    const QString file = values[0];
    if (isExport)
        return WithReceiver(model, *target, [&](const auto& receiver, std::stop_token stop) {
            return Export(receiver, std::move(stop), *root, file);
        });
    // The file is read whole before the port opens: a broken one costs the receiver nothing.
    const std::optional<VOXA2JSON::SettingsDocument> document =
        VOXA2JSON::ReadSettingsFile(file, &error);
    if (!document)
        return Fail(QStringLiteral("%1: %2").arg(file, error));
    VOXA2JSON::TakeValues(*root, *document);
    return WithReceiver(model, *target, [&](const auto& receiver, std::stop_token stop) {
        return Import(receiver, std::move(stop), *root);
    });
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
    for (const char* settings : {"export", "import", "print", "set"})
        if (command == QLatin1String(settings))
            return RunSettings(arguments, command);
    return FailWithUsage(command.isEmpty() ? QStringLiteral("which command: sky, export, "
                                                            "import, print, set or predict?")
                                           : QStringLiteral("unknown command \"%1\".").arg(command),
                         "");
}
