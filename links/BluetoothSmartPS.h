#pragma once

#include "lib/PellPropertyPage.h"
#include "lib/PellPropertySheet.h"
#include "lib/pell_export.h"
#include "links/BluetoothSmartEngine.h"

#include <memory>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;
class QTreeWidget;

// Name, PIN, address and radio of the Bluetooth LE module, and its factory reset.
class PELL_EXPORT CBluetoothSmartGeneralPP : public CPellPropertyPage {
    Q_OBJECT
public:
    static constexpr int kKeepAliveMs = 30000;

    CBluetoothSmartGeneralPP(std::shared_ptr<rxio::IReceiver> receiver,
                             CBluetoothSmartEngine& engine, CBluetoothSmartIdentity identity,
                             QWidget* parent = nullptr);

    // Reads the module's settings into the fields.
    void ReadSettings();
    // Asks, resets the module to its factory settings and tells it who it belongs to.
    void FactoryReset();

protected:
    void OnInitDialog() override;
    bool OnApply() override;

private:
    struct Field {
        QLabel* label;
        QLineEdit* edit;
        bool present = false;
        QString value;
    };
    void KeepAlive();

    CBluetoothSmartEngine& m_engine;
    CBluetoothSmartIdentity m_identity;
    Field m_name;
    Field m_pin;
    Field m_address;
    QCheckBox* m_radio;
    bool m_radioPresent = false;
    bool m_radioValue = false;
    bool m_read = false;
    QTimer* m_keepAlive;
};

// The module's own description ("ATI"), one property a row.
class PELL_EXPORT CBluetoothSmartAtiPP : public CPellPropertyPage {
    Q_OBJECT
public:
    CBluetoothSmartAtiPP(std::shared_ptr<rxio::IReceiver> receiver, CBluetoothSmartEngine& engine,
                         QWidget* parent = nullptr);

protected:
    void OnSetActive() override;

private:
    CBluetoothSmartEngine& m_engine;
    QTreeWidget* m_list;
};

// "Bluetooth LE": holds the module in command mode for its whole run.
class PELL_EXPORT CBluetoothSmartPS : public CPellPropertySheet {
    Q_OBJECT
public:
    explicit CBluetoothSmartPS(std::shared_ptr<rxio::IReceiver> receiver,
                               QWidget* parent = nullptr);
    ~CBluetoothSmartPS() override;

    // Opens the module and adds the pages; call before exec().
    void Prepare();
    CBluetoothSmartEngine& Engine() { return *m_engine; }

private:
    std::unique_ptr<CBluetoothSmartEngine> m_engine;
};

// Opens the Bluetooth LE sheet; `callback`, when given, is called once the sheet has closed and
// the receiver connection has its port back.
PELL_EXPORT int run_BluetoothSmartPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent,
                                     void (*callback)());
