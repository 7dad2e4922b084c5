#include "MainWindow.h"

#include "AboutDialog.h"
#include "AppIcon.h"
#include "lib/PellLibDoc.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSerialPortInfo>
#include <QSpinBox>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace dorrit {

namespace {

const QString kNone = QStringLiteral("—");

QWidget* Row(std::initializer_list<QWidget*> widgets) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* w : widgets)
        layout->addWidget(w);
    return row;
}

} // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent) {
    setWindowTitle(CPellLibDoc::GetShortApplicationName(true));
    setWindowIcon(AppIcon());
    BuildMenus();
    BuildConnectionBar();
    setCentralWidget(BuildReceiverPanel());
    statusBar()->showMessage(CPellLibDoc::GetApplicationVersion(true));
    resize(860, 500);
    connect(&m_connection, &Connection::identified, this, &MainWindow::OnIdentified);
    connect(&m_connection, &Connection::lost, this, &MainWindow::OnLost);
    ShowState(tr("No receiver connected"), false);
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

    m_kind = new QComboBox;
    m_kind->addItems({tr("Simulated receiver"), tr("Serial port"), tr("TCP")});

    m_profile = new QComboBox;
    m_profile->addItems(m_connection.SimulatorProfiles());

    m_serialPort = new QComboBox;
    m_serialPort->setEditable(true);
    m_serialPort->setMinimumContentsLength(14);
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        m_serialPort->addItem(info.systemLocation());
    m_serialRate = new QComboBox;
    for (int rate : {9600, 19200, 38400, 57600, 115200, 230400, 460800, 921600})
        m_serialRate->addItem(QString::number(rate), rate);
    m_serialRate->setCurrentText(QStringLiteral("115200"));

    m_host = new QLineEdit(QStringLiteral("127.0.0.1"));
    m_host->setMinimumWidth(140);
    m_tcpPort = new QSpinBox;
    m_tcpPort->setRange(1, 65535);
    m_tcpPort->setValue(8002);

    m_targets = new QStackedWidget;
    m_targets->addWidget(Row({m_profile}));
    m_targets->addWidget(Row({m_serialPort, m_serialRate}));
    m_targets->addWidget(Row({m_host, new QLabel(QStringLiteral(":")), m_tcpPort}));
    connect(m_kind, &QComboBox::currentIndexChanged, m_targets, &QStackedWidget::setCurrentIndex);

    m_connect = new QPushButton(tr("Connect"));
    connect(m_connect, &QPushButton::clicked, this, &MainWindow::OnConnectClicked);
    m_connectionState = new QLabel;
    m_connectionState->setContentsMargins(10, 0, 6, 0);

    m_connectionBar->addWidget(Row({m_kind, m_targets, m_connect, m_connectionState}));
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
    m_model = new QLabel(kNone);
    m_firmware = new QLabel(kNone);
    m_board = new QLabel(kNone);
    m_serialNumber = new QLabel(kNone);
    for (QLabel* label : {m_model, m_firmware, m_board, m_serialNumber})
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form->addRow(tr("Model:"), m_model);
    form->addRow(tr("Firmware:"), m_firmware);
    form->addRow(tr("Board:"), m_board);
    form->addRow(tr("Serial number:"), m_serialNumber);
    layout->addWidget(receiver);
    layout->addStretch();
    return panel;
}

ReceiverTarget MainWindow::TargetFromBar() const {
    switch (m_kind->currentIndex()) {
    case ReceiverTarget::Serial:
        return {ReceiverTarget::Serial, m_serialPort->currentText(),
                m_serialRate->currentData().toInt()};
    case ReceiverTarget::Tcp:
        return {ReceiverTarget::Tcp, m_host->text().trimmed(), m_tcpPort->value()};
    default:
        return {ReceiverTarget::Simulator, m_profile->currentText(), 0};
    }
}

void MainWindow::ConnectTo(const ReceiverTarget& target) {
    m_kind->setCurrentIndex(target.kind);
    if (target.kind == ReceiverTarget::Simulator && !target.name.isEmpty())
        m_profile->setCurrentText(target.name);
    else if (target.kind == ReceiverTarget::Serial) {
        m_serialPort->setCurrentText(target.name);
        m_serialRate->setCurrentText(QString::number(target.number));
    } else if (target.kind == ReceiverTarget::Tcp) {
        m_host->setText(target.name);
        m_tcpPort->setValue(target.number);
    }
    OnConnectClicked();
}

void MainWindow::OnConnectClicked() {
    if (m_connection.IsOpen()) {
        m_connection.Close();
        OnIdentified({});
        ShowState(tr("Disconnected"), false);
        return;
    }
    const ReceiverTarget target = TargetFromBar();
    QString error;
    if (!m_connection.Open(target, error)) {
        ShowState(error, false);
        return;
    }
    ShowState(tr("Connected to %1").arg(target.Describe()), true);
}

void MainWindow::OnIdentified(const rxio::ReceiverIdentity& identity) {
    auto show = [](QLabel* label, const QString& text) {
        label->setText(text.isEmpty() ? kNone : text);
    };
    show(m_model, identity.model);
    show(m_firmware, identity.firmware);
    show(m_board, identity.board);
    show(m_serialNumber, identity.serialNumber);
}

void MainWindow::OnLost(const QString& reason) {
    ShowState(tr("Connection lost: %1").arg(reason), false);
    m_connect->setText(tr("Reconnect"));
}

void MainWindow::ShowState(const QString& text, bool connected) {
    m_connectionState->setText(text);
    m_connect->setText(connected ? tr("Disconnect") : tr("Connect"));
    for (QWidget* w : {static_cast<QWidget*>(m_kind), static_cast<QWidget*>(m_targets)})
        w->setEnabled(!connected);
}

void MainWindow::ShowAbout() {
    AboutDialog about(this);
    about.exec();
}

} // namespace dorrit
