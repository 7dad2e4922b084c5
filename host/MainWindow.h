#pragma once

#include <QMainWindow>

class QLabel;
class QToolBar;

namespace dorrit {

// The host's window: menus that open the library's windows, the connection bar and the
// connected receiver's identity.
class MainWindow final : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);

    // The toolbar that holds the connection controls.
    QToolBar* ConnectionBar() const { return m_connectionBar; }

public slots:
    void ShowAbout();

private:
    void BuildMenus();
    void BuildConnectionBar();
    QWidget* BuildReceiverPanel();

    QToolBar* m_connectionBar = nullptr;
    QLabel* m_connectionState = nullptr;
};

} // namespace dorrit
