#include "AppIcon.h"
#include "MainWindow.h"
#include "Screenshots.h"
#include "lib/PellLib.h"
#include "lib/PellLibDoc.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("dorrit"));
    QApplication::setApplicationVersion(CPellLibDoc::GetApplicationVersion(false));
    g_PellLibApp.InitInstance();
    QApplication::setWindowIcon(dorrit::AppIcon());

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Field application for configuring and monitoring a GNSS receiver."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption screenshots(
        QStringLiteral("screenshots"),
        QStringLiteral("Save a PNG of every window into DIR and exit."), QStringLiteral("DIR"));
    parser.addOption(screenshots);
    parser.process(app);

    int result = 0;
    {
        dorrit::MainWindow window;
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
