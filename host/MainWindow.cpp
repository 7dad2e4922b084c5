#include "MainWindow.h"

#include "AboutDialog.h"
#include "AppIcon.h"
#include "lib/PellLibDoc.h"

#include <QApplication>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace dorrit {

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent) {
    setWindowTitle(CPellLibDoc::GetShortApplicationName(true));
    setWindowIcon(AppIcon());
    BuildMenus();
    BuildConnectionBar();
    setCentralWidget(BuildReceiverPanel());
    statusBar()->showMessage(CPellLibDoc::GetApplicationVersion(true));
    resize(760, 480);
}

void MainWindow::BuildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QAction* quit = file->addAction(tr("E&xit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About %1").arg(CPellLibDoc::GetShortApplicationName(true)), this,
                    &MainWindow::ShowAbout);
}

void MainWindow::BuildConnectionBar() {
    m_connectionBar = addToolBar(tr("Connection"));
    m_connectionBar->setObjectName(QStringLiteral("connectionBar"));
    m_connectionBar->setMovable(false);
    m_connectionState = new QLabel(tr("No receiver connected"));
    m_connectionState->setContentsMargins(8, 4, 8, 4);
    m_connectionBar->addWidget(m_connectionState);
}

QWidget* MainWindow::BuildReceiverPanel() {
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(24, 20, 24, 20);

    auto* heading = new QHBoxLayout;
    auto* mark = new QLabel;
    mark->setPixmap(AppMark(64));
    auto* title = new QLabel(QStringLiteral("<b style='font-size:16pt'>%1</b><br>%2")
                                 .arg(CPellLibDoc::GetShortApplicationName(true).toHtmlEscaped(),
                                      tr("GNSS receiver configuration and monitoring")));
    heading->addWidget(mark);
    heading->addSpacing(12);
    heading->addWidget(title, 1);
    layout->addLayout(heading);
    layout->addSpacing(16);

    auto* receiver = new QGroupBox(tr("Receiver"));
    auto* form = new QFormLayout(receiver);
    const QString none = tr("—");
    form->addRow(tr("Model:"), new QLabel(none));
    form->addRow(tr("Firmware:"), new QLabel(none));
    form->addRow(tr("Serial number:"), new QLabel(none));
    layout->addWidget(receiver);
    layout->addStretch();
    return panel;
}

void MainWindow::ShowAbout() {
    AboutDialog about(this);
    about.exec();
}

} // namespace dorrit
