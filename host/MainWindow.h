#pragma once

#include "Model.h"
#include "receiver/Connection.h"

#include <QMainWindow>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace dorrit {

using pell::Connection;
using pell::ReceiverTarget;

// The host's window: the connection, the connected receiver's identity, and menus that open the
// library's windows. It only shows the Connection's state.
class MainWindow final : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(std::shared_ptr<const rxsim::CModel> model, QWidget* parent = nullptr);

    // Fills the connection fields with `target`.
    void ShowTarget(const ReceiverTarget& target);
    // Fills the connection fields with `target` and connects to it.
    void ConnectTo(const ReceiverTarget& target);
    // The connected receiver; null while there is none.
    std::shared_ptr<rxio::IReceiver> Receiver() const;

public slots:
    void ShowAbout();
    void ShowReceiverStatus();
    void ExportSettings();
    void ImportSettings();
    void ShowTimingSignals();
    void ShowTrackingPositioning();
    void ShowNtrip();
    void ShowNetwork();
    void ShowNotifications();
    void ShowBluetoothSmart();
    void ShowBluetooth();
    void ShowReceiverPorts();

private:
    void BuildMenus();
    QGroupBox* BuildConnectionBox();
    QGroupBox* BuildReceiverBox();
    void ShowKind(int kind);
    void OnConnectClicked();
    void OnStateChanged();
    void OnIdentified();
    ReceiverTarget TargetFromFields() const;

    std::shared_ptr<const rxsim::CModel> m_simulatorModel;
    pell::Connection m_connection;
    QFormLayout* m_connectionForm = nullptr;
    QComboBox* m_kind = nullptr;
    QComboBox* m_profile = nullptr;
    QComboBox* m_serialPort = nullptr;
    QComboBox* m_serialRate = nullptr;
    QCheckBox* m_rtsCts = nullptr;
    QLineEdit* m_host = nullptr;
    QSpinBox* m_tcpPort = nullptr;
    QPushButton* m_connect = nullptr;
    QAction* m_receiverStatus = nullptr;
    QAction* m_exportSettings = nullptr;
    QAction* m_importSettings = nullptr;
    QAction* m_timingSignals = nullptr;
    QAction* m_trackingPositioning = nullptr;
    QAction* m_ntrip = nullptr;
    QAction* m_network = nullptr;
    QAction* m_notifications = nullptr;
    QAction* m_bluetoothSmart = nullptr;
    QAction* m_bluetooth = nullptr;
    QAction* m_receiverPorts = nullptr;
    QLabel* m_stateMark = nullptr;
    QLabel* m_state = nullptr;
    QGroupBox* m_receiver = nullptr;
    QLabel* m_model = nullptr;
    QLabel* m_firmware = nullptr;
    QLabel* m_board = nullptr;
    QLabel* m_serialNumber = nullptr;
};

} // namespace dorrit
