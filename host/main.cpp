#include "AppIcon.h"
#include "CommandLine.h"
#include "MainWindow.h"
#include "Model.h"
#include "Screenshots.h"
#include "lib/PellLib.h"
#include "lib/PellLibDoc.h"

#include <QApplication>
#include <QTextStream>
#include <stdexcept>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("dorrit"));
    QApplication::setApplicationVersion(CPellLibDoc::GetApplicationVersion(false));

    std::shared_ptr<const rxsim::CModel> model;
    try {
        model = std::make_shared<const rxsim::CModel>(
            rxsim::CModel::Load(rxsim::CModel::DefaultFile()));
    } catch (const std::runtime_error& e) {
        QTextStream(stderr) << "dorrit: " << e.what() << '\n';
        return 1;
    }
    QStringList profiles;
    for (const rxsim::Profile& profile : model->Profiles())
        profiles << profile.name;
    dorrit::CommandLine commandLine(profiles);
    if (!commandLine.Parse(QApplication::arguments())) {
        QTextStream(stderr) << "dorrit: " << commandLine.Error() << "\n"
                            << "Try 'dorrit --help'.\n";
        return 2;
    }
    if (commandLine.WantsHelp())
        commandLine.ShowHelp();
    if (commandLine.WantsVersion())
        commandLine.ShowVersion();

    g_PellLibApp.InitInstance();
    QApplication::setWindowIcon(dorrit::AppIcon());
    int result = 0;
    if (!commandLine.ScreenshotFolder().isEmpty()) {
        result = dorrit::SaveScreenshots(model, commandLine.ScreenshotFolder(),
                                         commandLine.Target()) == 0
                     ? 0
                     : 1;
    } else {
        dorrit::MainWindow window(model);
        if (commandLine.Target())
            window.ConnectTo(*commandLine.Target());
        window.show();
        result = QApplication::exec();
    }
    OnExitApp();
    g_PellLibApp.ExitInstance();
    return result;
}
