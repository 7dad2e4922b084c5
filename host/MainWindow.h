#pragma once

#include "Connection.h"

#include <QMainWindow>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QStackedWidget;
class QToolBar;

namespace dorrit {

// The host's window: menus that open the library's windows, the connection bar and the
// connected receiver's identity.
class MainWindow final : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);

    // Fills the connection bar with `target` and connects to it.
    void ConnectTo(const ReceiverTarget& target);

public slots:
    void ShowAbout();

private:
    void BuildMenus();
    void BuildConnectionBar();
    QWidget* BuildReceiverPanel();
    void OnConnectClicked();
    void OnIdentified(const rxio::ReceiverIdentity& identity);
    void OnLost(const QString& reason);
    void ShowState(const QString& text, bool connected);
    ReceiverTarget TargetFromBar() const;

    Connection m_connection;
    QToolBar* m_connectionBar = nullptr;
    QComboBox* m_kind = nullptr;
    QStackedWidget* m_targets = nullptr;
    QComboBox* m_profile = nullptr;
    QComboBox* m_serialPort = nullptr;
    QComboBox* m_serialRate = nullptr;
    QLineEdit* m_host = nullptr;
    QSpinBox* m_tcpPort = nullptr;
    QPushButton* m_connect = nullptr;
    QLabel* m_connectionState = nullptr;
    QLabel* m_model = nullptr;
    QLabel* m_firmware = nullptr;
    QLabel* m_board = nullptr;
    QLabel* m_serialNumber = nullptr;
};

} // namespace dorrit
