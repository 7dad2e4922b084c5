// A host built against the installed library: it initialises the library, reads a text and
// checks that the data and help folders resolve beside the installed library file.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <cstdio>
#include <lib/PellLib.h>
#include <lib/PellLibDoc.h>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    if (argc != 2)
        return 2;
    g_PellLibApp.InitInstance();
    const QString prefix = QFileInfo(QString::fromLocal8Bit(argv[1])).canonicalFilePath();
    const QString data = CPellLibApp::GetDataPath(QStringLiteral("Table"), QStringLiteral(".xml"));
    const QString help = CPellLibApp::GetHelpPath(QStringLiteral("Index"), QStringLiteral(".html"));
    std::printf("%s\n%s\n%s\n", qPrintable(CPellLibDoc::GetApplicationVersion(false)),
                qPrintable(data), qPrintable(help));
    const QString libFolder = QFileInfo(data).absolutePath() + QStringLiteral("/..");
    const bool ok = CPellLibDoc::GetApplicationVersion(false) == "Version 3.5, build 169146" &&
                    QFileInfo(libFolder).canonicalFilePath().startsWith(prefix) &&
                    data.endsWith(QStringLiteral("/DATA/Table.xml")) &&
                    help.endsWith(QStringLiteral("/Help/Index.html")) &&
                    QFileInfo(QFileInfo(data).absolutePath()).isDir();
    g_PellLibApp.ExitInstance();
    return ok ? 0 : 1;
}
