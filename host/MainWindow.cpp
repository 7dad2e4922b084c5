#include "MainWindow.h"

#include "AboutDialog.h"
#include "AppIcon.h"
#include "InProcess.h"
#include "config/NetworkPS.h"
#include "config/NotificationsPS.h"
#include "config/NtripPS.h"
#include "config/PPSEventFrqPS.h"
#include "config/ReceiverPortsPS.h"
#include "config/ReceiverSettingsExport_SelectFilePP.h"
#include "config/ReceiverSettingsImport_SelectFilePP.h"
#include "config/TrackingPositioningPS.h"
#include "lib/PellLibDoc.h"
#include "links/BluetoothDlg.h"
#include "links/BluetoothSmartPS.h"
#include "status/ReceiverStatusPS.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QSerialPortInfo>
#include <QSpinBox>
#include <QStatusBar>
#include <QVBoxLayout>

namespace dorrit {

namespace {

const QString kNone = QStringLiteral("—");

// Rows of the connection form shown for each kind of receiver target, after the kind itself.
enum ERow { KindRow, ProfileRow, SerialPortRow, SerialRateRow, AddressRow, StateRow };

QWidget* Row(std::initializer_list<QWidget*> widgets, int stretchIndex = -1) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    int index = 0;
    for (QWidget* w : widgets)
        layout->addWidget(w, index++ == stretchIndex ? 1 : 0);
    return row;
}

// Text that comes from outside (a receiver, a socket, the user) never widens the window and is
// never read as markup.
QLabel* OutsideText(const QString& text = {}) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

QPixmap StateMark(const QColor& color) {
    const int size = 12;
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(color.darker(130), 1));
    p.setBrush(color);
    p.drawEllipse(QRectF(1.5, 1.5, size - 3, size - 3));
    return pixmap;
}

} // namespace

MainWindow::MainWindow(std::shared_ptr<const rxsim::CModel> model, QWidget* parent)
    : QMainWindow(parent), m_simulatorModel(std::move(model)),
      m_connection(rxsim::InProcessReceivers(m_simulatorModel)) {
    setWindowTitle(CPellLibDoc::GetShortApplicationName(true));
    setWindowIcon(AppIcon());
    BuildMenus();

    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(18, 16, 18, 16);
    layout->setSpacing(14);
    auto* heading = new QHBoxLayout;
    auto* mark = new QLabel;
    mark->setPixmap(AppMark(48));
    auto* title = new QLabel(QStringLiteral("<b style='font-size:15pt'>%1</b><br>%2")
                                 .arg(CPellLibDoc::GetShortApplicationName(true).toHtmlEscaped(),
                                      tr("GNSS receiver configuration and monitoring")));
    title->setWordWrap(true);
    heading->addWidget(mark);
    heading->addSpacing(8);
    heading->addWidget(title, 1);
    layout->addLayout(heading);
    layout->addWidget(BuildConnectionBox());
    layout->addWidget(BuildReceiverBox());
    layout->addStretch();
    setCentralWidget(panel);

    statusBar()->showMessage(CPellLibDoc::GetApplicationVersion(true));
    resize(760, 560);
    connect(&m_connection, &Connection::stateChanged, this, &MainWindow::OnStateChanged);
    connect(&m_connection, &Connection::identified, this, &MainWindow::OnIdentified);
    OnStateChanged();
}

void MainWindow::BuildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QAction* quit = file->addAction(tr("E&xit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    QMenu* receiver = menuBar()->addMenu(tr("&Receiver"));
    m_receiverStatus = receiver->addAction(tr("&Status…"), this, &MainWindow::ShowReceiverStatus);
    receiver->addSeparator();
    m_exportSettings =
        receiver->addAction(tr("&Export Settings…"), this, &MainWindow::ExportSettings);
    m_importSettings =
        receiver->addAction(tr("&Import Settings…"), this, &MainWindow::ImportSettings);
    receiver->addSeparator();
    m_timingSignals =
        receiver->addAction(tr("&Timing Signals…"), this, &MainWindow::ShowTimingSignals);
    m_trackingPositioning = receiver->addAction(tr("Tracking and &Positioning…"), this,
                                                &MainWindow::ShowTrackingPositioning);
    m_receiverPorts =
        receiver->addAction(tr("Receiver P&orts…"), this, &MainWindow::ShowReceiverPorts);
    m_ntrip = receiver->addAction(tr("&NTRIP…"), this, &MainWindow::ShowNtrip);
    m_network = receiver->addAction(tr("Net&work…"), this, &MainWindow::ShowNetwork);
    m_notifications =
        receiver->addAction(tr("Noti&fications…"), this, &MainWindow::ShowNotifications);
    receiver->addSeparator();
    m_bluetoothSmart =
        receiver->addAction(tr("Bluetooth &LE…"), this, &MainWindow::ShowBluetoothSmart);
    m_bluetooth = receiver->addAction(tr("&Bluetooth…"), this, &MainWindow::ShowBluetooth);

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About %1").arg(CPellLibDoc::GetShortApplicationName(true)), this,
                    &MainWindow::ShowAbout);
}

QGroupBox* MainWindow::BuildConnectionBox() {
    auto* box = new QGroupBox(tr("Connection"));
    m_connectionForm = new QFormLayout(box);
    m_connectionForm->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);

    m_kind = new QComboBox;
    m_kind->addItems({tr("Simulated receiver"), tr("Serial port"), tr("Network (TCP)")});

    m_profile = new QComboBox;
    for (const rxsim::Profile& profile : m_simulatorModel->Profiles())
        m_profile->addItem(QStringLiteral("%1 (%2)").arg(profile.model, profile.name),
                           profile.name);

    m_serialPort = new QComboBox;
    m_serialPort->setEditable(true);
    m_serialPort->setMinimumContentsLength(12);
    m_serialPort->lineEdit()->setPlaceholderText(QStringLiteral("/dev/ttyUSB0"));
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        m_serialPort->addItem(info.systemLocation());
    m_serialRate = new QComboBox;
    for (int rate : {9600, 19200, 38400, 57600, 115200, 230400, 460800, 921600})
        m_serialRate->addItem(QString::number(rate), rate);
    m_serialRate->setCurrentText(QStringLiteral("115200"));
    m_rtsCts = new QCheckBox(tr("RTS/CTS flow control"));

    m_host = new QLineEdit(QStringLiteral("127.0.0.1"));
    m_host->setPlaceholderText(tr("host name or IP address"));
    m_tcpPort = new QSpinBox;
    m_tcpPort->setRange(1, 65535);
    m_tcpPort->setValue(8002);

    m_connect = new QPushButton;
    int buttonWidth = 0;
    for (const QString& text : {tr("Connect"), tr("Cancel"), tr("Disconnect"), tr("Reconnect")})
        buttonWidth = std::max(buttonWidth, m_connect->fontMetrics().horizontalAdvance(text));
    m_connect->setMinimumWidth(buttonWidth + 32);
    m_connect->setDefault(true);
    connect(m_connect, &QPushButton::clicked, this, &MainWindow::OnConnectClicked);
    m_stateMark = new QLabel;
    m_state = OutsideText();

    m_connectionForm->addRow(tr("Connect to:"), m_kind);
    m_connectionForm->addRow(tr("Model:"), m_profile);
    m_connectionForm->addRow(tr("Port:"), m_serialPort);
    m_connectionForm->addRow(tr("Speed:"), Row({m_serialRate, m_rtsCts}, 1));
    m_connectionForm->addRow(tr("Address:"),
                             Row({m_host, new QLabel(QStringLiteral(":")), m_tcpPort}, 0));
    m_connectionForm->addRow(Row({m_stateMark, m_state, m_connect}, 1));
    connect(m_kind, &QComboBox::currentIndexChanged, this, &MainWindow::ShowKind);
    ShowKind(ReceiverTarget::Simulator);
    return box;
}

QGroupBox* MainWindow::BuildReceiverBox() {
    m_receiver = new QGroupBox(tr("Receiver"));
    auto* form = new QFormLayout(m_receiver);
    m_model = OutsideText(kNone);
    m_firmware = OutsideText(kNone);
    m_board = OutsideText(kNone);
    m_serialNumber = OutsideText(kNone);
    for (QLabel* label : {m_model, m_firmware, m_board, m_serialNumber})
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form->addRow(tr("Model:"), m_model);
    form->addRow(tr("Firmware:"), m_firmware);
    form->addRow(tr("Board:"), m_board);
    form->addRow(tr("Serial number:"), m_serialNumber);
    return m_receiver;
}

void MainWindow::ShowKind(int kind) {
    m_connectionForm->setRowVisible(ProfileRow, kind == ReceiverTarget::Simulator);
    m_connectionForm->setRowVisible(SerialPortRow, kind == ReceiverTarget::Serial);
    m_connectionForm->setRowVisible(SerialRateRow, kind == ReceiverTarget::Serial);
    m_connectionForm->setRowVisible(AddressRow, kind == ReceiverTarget::Tcp);
}

ReceiverTarget MainWindow::TargetFromFields() const {
    switch (m_kind->currentIndex()) {
    case ReceiverTarget::Serial:
        return {ReceiverTarget::Serial, m_serialPort->currentText().trimmed(),
                m_serialRate->currentData().toInt(), m_rtsCts->isChecked()};
    case ReceiverTarget::Tcp:
        return {ReceiverTarget::Tcp, m_host->text().trimmed(), m_tcpPort->value(), false};
    default:
        return {ReceiverTarget::Simulator, m_profile->currentData().toString(), 0, false};
    }
}

void MainWindow::ConnectTo(const ReceiverTarget& target) {
    ShowTarget(target);
    m_connection.Open(target);
}

void MainWindow::ShowTarget(const ReceiverTarget& target) {
    m_kind->setCurrentIndex(target.kind);
    switch (target.kind) {
    case ReceiverTarget::Simulator:
        if (const int index = m_profile->findData(target.name); index >= 0)
            m_profile->setCurrentIndex(index);
        break;
    case ReceiverTarget::Serial:
        m_serialPort->setCurrentText(target.name);
        if (m_serialRate->findData(target.number) < 0)
            m_serialRate->addItem(QString::number(target.number), target.number);
        m_serialRate->setCurrentIndex(m_serialRate->findData(target.number));
        m_rtsCts->setChecked(target.rtsCts);
        break;
    case ReceiverTarget::Tcp:
        m_host->setText(target.name);
        m_tcpPort->setValue(target.number);
        break;
    }
}

void MainWindow::OnConnectClicked() {
    switch (m_connection.State()) {
    case Connection::EState::Connecting:
    case Connection::EState::Connected:
        m_connection.Close();
        break;
    case Connection::EState::Closed:
    case Connection::EState::Lost:
        m_connection.Open(TargetFromFields());
        break;
    }
}

void MainWindow::OnStateChanged() {
    using EState = Connection::EState;
    const EState state = m_connection.State();
    const QString target = m_connection.Target().Describe();
    QString text;
    QColor mark(0x9a, 0x9a, 0x9a);
    const QColor bad(0xc6, 0x3b, 0x2f);
    switch (state) {
    case EState::Closed:
        text = m_connection.Message().isEmpty() ? tr("Not connected.") : m_connection.Message();
        if (!m_connection.Message().isEmpty())
            mark = bad;
        m_connect->setText(tr("Connect"));
        break;
    case EState::Connecting:
        text = tr("Connecting to %1…").arg(target);
        mark = QColor(0xe0, 0xa1, 0x1b);
        m_connect->setText(tr("Cancel"));
        break;
    case EState::Connected:
        text = tr("Connected to %1.").arg(target);
        mark = QColor(0x2e, 0x9d, 0x4f);
        m_connect->setText(tr("Disconnect"));
        break;
    case EState::Lost:
        text = tr("Connection lost. %1").arg(m_connection.Message());
        mark = bad;
        m_connect->setText(tr("Reconnect"));
        break;
    }
    m_state->setText(text);
    m_state->setToolTip(text);
    m_stateMark->setPixmap(StateMark(mark));

    const bool editable = state == EState::Closed || state == EState::Lost;
    for (int row = KindRow; row < StateRow; ++row)
        m_connectionForm->itemAt(row, QFormLayout::FieldRole)->widget()->setEnabled(editable);
    // The identity after a loss is the receiver that was there, not one that is.
    m_receiver->setEnabled(state != EState::Lost);
    m_receiver->setTitle(state == EState::Lost ? tr("Receiver (last seen)") : tr("Receiver"));
    for (QAction* action : {m_receiverStatus, m_exportSettings, m_importSettings, m_timingSignals,
                            m_trackingPositioning, m_receiverPorts, m_ntrip, m_network,
                            m_notifications, m_bluetoothSmart, m_bluetooth})
        action->setEnabled(state == EState::Connected);
    OnIdentified();
}

void MainWindow::OnIdentified() {
    const rxio::ReceiverIdentity& identity = m_connection.Identity();
    auto show = [](QLabel* label, const QString& text) {
        label->setText(text.isEmpty() ? kNone : text);
    };
    show(m_model, identity.model);
    show(m_firmware, identity.firmware);
    show(m_board, identity.board);
    show(m_serialNumber, identity.serialNumber);
}

std::shared_ptr<rxio::IReceiver> MainWindow::Receiver() const {
    return m_connection.State() == Connection::EState::Connected ? m_connection.Receiver()
                                                                 : nullptr;
}

void MainWindow::ShowReceiverStatus() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_ReceiverStatusPS(std::move(receiver), this);
}

void MainWindow::ExportSettings() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_ReceiverSettingsExportWizard(std::move(receiver), this);
}

void MainWindow::ImportSettings() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_ReceiverSettingsImportWizard(std::move(receiver), this);
}

void MainWindow::ShowTimingSignals() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_PPSEventFrqPS(std::move(receiver), this);
}

void MainWindow::ShowTrackingPositioning() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_TrackingPositioningPS(std::move(receiver), this);
}

void MainWindow::ShowNtrip() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_NtripPS(std::move(receiver), this);
}

void MainWindow::ShowNetwork() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_NetworkPS(std::move(receiver), this);
}

void MainWindow::ShowNotifications() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_NotificationsPS(std::move(receiver), this);
}

void MainWindow::ShowReceiverPorts() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_ReceiverPortsPS(std::move(receiver), this);
}

void MainWindow::ShowBluetoothSmart() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_BluetoothSmartPS(std::move(receiver), this, nullptr);
}

void MainWindow::ShowBluetooth() {
    if (std::shared_ptr<rxio::IReceiver> receiver = Receiver())
        run_BluetoothDlg(std::move(receiver), this);
}

void MainWindow::ShowAbout() {
    AboutDialog about(this);
    about.exec();
}

} // namespace dorrit
