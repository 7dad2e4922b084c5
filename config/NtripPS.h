#pragma once

#include "config/ParameterDialog.h"
#include "config/ParameterPage.h"
#include "config/ParameterSheet.h"
#include "lib/pell_export.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

// The receiver's NTRIP client: the caster it connects to, the mount point it asks for (chosen
// from the caster's source table), its account and how its corrections come in; the receiver's
// NTRIP function and the port its data goes through; the client's state. Protocol, position
// reports and the proxy server are in the advanced dialog.
class PELL_EXPORT CNtrip_ClientPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNtrip_ClientPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

    // Opens the source table's list and takes the mount point chosen there.
    void SelectMountpoint();
    // Opens the advanced dialog; the proxy line shows what it wrote.
    void EditAdvanced();

protected:
    bool OnApply() override;
    void OnValuesRead() override;

private:
    // The lines under "Caster" and "Proxy Server": what the receiver holds.
    void ShowAddresses();

    QComboBox* m_function;
    QLineEdit* m_caster;
    QSpinBox* m_casterPort;
    QLineEdit* m_mountpoint;
    QComboBox* m_inputMode;
    QLabel* m_proxy;
    QLabel* m_proxyPort;
    QLabel* m_state;
    QLabel* m_casterLine;
    QLabel* m_proxyLine;
};

// How the client talks to its caster: protocol, position reports, initialisation, and the proxy
// server between them.
class PELL_EXPORT CNtrip_Client_AdvancedDlg : public CParameterDialog {
    Q_OBJECT
public:
    explicit CNtrip_Client_AdvancedDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                       QWidget* parent = nullptr);

    QString Proxy() const;
    QString ProxyPort() const;

private:
    QLineEdit* m_proxy;
    QSpinBox* m_proxyPort;
};

// The NTRIP sheet.
class PELL_EXPORT CNtripPS : public CParameterSheet {
    Q_OBJECT
public:
    explicit CNtripPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);
};

// Shows the NTRIP sheet modally; IDOK or IDCANCEL.
PELL_EXPORT int run_NtripPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent);
