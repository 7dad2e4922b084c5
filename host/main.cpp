#include "AppIcon.h"
#include "MainWindow.h"
#include "Screenshots.h"
#include "lib/PellLib.h"
#include "lib/PellLibDoc.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("dorrit"));
    QApplication::setApplicationVersion(CPellLibDoc::GetApplicationVersion(false));
    g_PellLibApp.InitInstance();
    QApplication::setWindowIcon(dorrit::AppIcon());

    // "--simulator" alone means the first profile.
    QStringList arguments = QApplication::arguments();
    for (QString& argument : arguments)
        if (argument == QLatin1String("--simulator"))
            argument = QStringLiteral("--simulator=");

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Field application for configuring and monitoring a GNSS receiver."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption screenshots(
        QStringLiteral("screenshots"),
        QStringLiteral("Save a PNG of every window into DIR and exit."), QStringLiteral("DIR"));
    const QCommandLineOption simulator(QStringLiteral("simulator"),
                                       QStringLiteral("Connect to the simulated receiver."),
                                       QStringLiteral("PROFILE"));
    const QCommandLineOption tcp(QStringLiteral("connect"),
                                 QStringLiteral("Connect to a receiver at tcp://HOST:PORT."),
                                 QStringLiteral("URL"));
    const QCommandLineOption serial(QStringLiteral("serial"),
                                    QStringLiteral("Connect to a receiver on DEVICE[@RATE]."),
                                    QStringLiteral("DEVICE"));
    parser.addOptions({screenshots, simulator, tcp, serial});
    parser.process(arguments);

    std::optional<dorrit::ReceiverTarget> target;
    if (parser.isSet(simulator)) {
        target =
            dorrit::ReceiverTarget{dorrit::ReceiverTarget::Simulator, parser.value(simulator), 0};
    } else if (parser.isSet(tcp)) {
        if (!(target = dorrit::ReceiverTarget::FromUrl(parser.value(tcp)))) {
            QTextStream(stderr) << "dorrit: --connect takes tcp://HOST:PORT\n";
            return 2;
        }
    } else if (parser.isSet(serial)) {
        if (!(target = dorrit::ReceiverTarget::FromSerial(parser.value(serial)))) {
            QTextStream(stderr) << "dorrit: --serial takes DEVICE[@RATE]\n";
            return 2;
        }
    }

    int result = 0;
    {
        dorrit::MainWindow window;
        if (target)
            window.ConnectTo(*target);
        if (parser.isSet(screenshots)) {
            result = dorrit::SaveScreenshots(window, parser.value(screenshots)) == 0 ? 0 : 1;
        } else {
            window.show();
            result = QApplication::exec();
        }
    }
    OnExitApp();
    g_PellLibApp.ExitInstance();
    return result;
}
