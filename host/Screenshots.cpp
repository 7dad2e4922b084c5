#include "Screenshots.h"

#include "AboutDialog.h"
#include "MainWindow.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QTextStream>
#include <QTimer>
#include <QWidget>

namespace dorrit {

namespace {

// Lets replies that are on their way (the receiver's identity) arrive first.
void Settle() {
    QEventLoop loop;
    QTimer::singleShot(300, &loop, &QEventLoop::quit);
    loop.exec();
}

bool Save(QWidget& widget, const QDir& folder, const QString& name) {
    widget.show();
    Settle();
    const QString path = folder.filePath(name + QStringLiteral(".png"));
    const bool saved = widget.grab().save(path);
    QTextStream(saved ? stdout : stderr) << (saved ? "saved " : "could not save ") << path << '\n';
    return saved;
}

} // namespace

int SaveScreenshots(MainWindow& window, const QString& folder) {
    QDir dir(folder);
    if (!dir.mkpath(QStringLiteral("."))) {
        QTextStream(stderr) << "cannot create " << folder << '\n';
        return 1;
    }
    int failures = 0;
    failures += Save(window, dir, QStringLiteral("main-window")) ? 0 : 1;

    AboutDialog about(&window);
    failures += Save(about, dir, QStringLiteral("about")) ? 0 : 1;
    about.close();
    return failures;
}

} // namespace dorrit
