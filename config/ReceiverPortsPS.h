#pragma once

#include "config/ParameterPage.h"
#include "config/ParameterSheet.h"
#include "lib/pell_export.h"

#include <optional>
#include <vector>

class QComboBox;
class QDoubleSpinBox;
class QGroupBox;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QTreeWidget;

// One communication port of the receiver, "dev/<kind>/<letter>".
struct PELL_EXPORT ReceiverPort {
    QString path;            // "dev/tcp/b"
    QString kind;            // "tcp"
    bool takesOutput = true; // false: the receiver refuses "out," and "em," on it
    bool controller = false; // the port this controller talks through ("cur/term/id")

    // "/dev/tcp/b", as the receiver names its ports.
    QString Id() const { return QLatin1Char('/') + path; }
    // The port's name in lists: its id, "(tcp)"/"(udp)" for network ports, and a note when it is
    // the controller's own port or takes no output.
    QString Label() const;
};

// What the receiver has: its ports in the receiver's order, asked with "list,dev" and
// "list,dev/<kind>", each probed with an empty "out," (which sends nothing) for output, and the
// controller's own port from "cur/term/id".
PELL_EXPORT std::vector<ReceiverPort> FindReceiverPorts(const CVexReceiverMate& mate);

// Pages of this sheet: a change to the line settings or the input mode of the port this
// controller talks through is applied only after the user agreed to risk the connection.
class PELL_EXPORT CReceiverPortPage : public CParameterPage {
    Q_OBJECT
public:
    CReceiverPortPage(std::shared_ptr<rxio::IReceiver> receiver, const QString& title,
                      const ReceiverPort* controller, QWidget* parent = nullptr);

protected:
    bool OnApply() override;
    // Read again when shown after an Apply, which may have written what this page shows.
    void OnSetActive() override;
    // The user's answer to what this page is about to write; false keeps the page unwritten.
    virtual bool ConfirmChanges();
    // A control whose change ConfirmChanges asks about; `link`: a setting of the controller's own
    // port that cuts its connection when it changes.
    void Watch(QWidget* control, bool link);
    // Whether a watched control differs from what the receiver holds.
    bool Edited(const QWidget* control);
    // The port's input mode: a choice, also on a port that takes no output.
    QComboBox* BindInputMode(const ReceiverPort& port);
    // The port's output mode: a choice, or a label for a port that takes no output.
    QWidget* BindOutputMode(const ReceiverPort& port);

private:
    struct Watched {
        QWidget* control;
        bool link;
    };

    std::vector<Watched> m_watched;
    QString m_controllerId; // "/dev/ser/a", or empty
    int m_readAfter = -1;   // the sheet's count of Applies when the page last read
};

// General settings of ports: input and output modes, the elevation mask and period of their
// messages and the message sets they output. With several ports, a list ("Port", "Auth") picks
// the one edited. The message sets can be chosen while the output mode is "User Defined"; other
// modes output their own stream and show the sets greyed.
class PELL_EXPORT CReceiverPortGeneralPP : public CReceiverPortPage {
    Q_OBJECT
public:
    CReceiverPortGeneralPP(std::shared_ptr<rxio::IReceiver> receiver,
                           const std::vector<ReceiverPort>& ports, const ReceiverPort* controller,
                           QWidget* parent = nullptr);

    // Whether a message period fits the update rates: in whole milliseconds it is 0 or a
    // multiple of the raw measurement or the position interval (ms, 0 when unknown).
    static bool PeriodFits(double seconds, int rawMs, int posMs);

protected:
    CReceiverPortGeneralPP(std::shared_ptr<rxio::IReceiver> receiver, const QString& title,
                           const std::vector<ReceiverPort>& ports, const ReceiverPort* controller,
                           QWidget* parent);
    void OnValuesRead() override;
    bool OnApply() override;
    bool ConfirmChanges() override;
    void OnCancel() override;
    void OnConnectionLost() override;
    void OnReceiverGone() override;

private:
    struct Panel {
        ReceiverPort port;
        QComboBox* output;
        QDoubleSpinBox* period;
        QListWidget* messages;
        QStringList enabled; // as the receiver last said
        bool read = false;   // false: the last read failed, the sets are unknown
    };

    void Build(const std::vector<ReceiverPort>& ports);
    void ReadMessages(Panel& panel);
    void SyncMessages(Panel& panel);
    void ReadAuth();
    void Remember(const QString& undo);

    std::vector<Panel> m_panels;
    QGroupBox* m_panelBox = nullptr;
    QTreeWidget* m_portList = nullptr;
    QStackedWidget* m_stack = nullptr;
    int m_rawMs = 0;
    int m_posMs = 0;
    bool m_filling = false;
    QStringList m_undo;   // newest first
    int m_undoAfter = -1; // the sheet's count of Applies when m_undo began
};

// One serial port: its line settings above its general settings.
class PELL_EXPORT CReceiverPorts_SerialPP : public CReceiverPortGeneralPP {
    Q_OBJECT
public:
    CReceiverPorts_SerialPP(std::shared_ptr<rxio::IReceiver> receiver, const ReceiverPort& port,
                            const ReceiverPort* controller, QWidget* parent = nullptr);
};

// The ports of one kind, each with its input and output mode. A port that takes no output shows
// its output mode and has only its input mode written.
class PELL_EXPORT CReceiverPortGroupPP : public CReceiverPortPage {
    Q_OBJECT
public:
    CReceiverPortGroupPP(std::shared_ptr<rxio::IReceiver> receiver, const QString& title,
                         const std::vector<ReceiverPort>& ports, const ReceiverPort* controller,
                         QWidget* parent = nullptr);
};

// The TCP server ports' numbers and whether they ask for the password: "net/tcp/<x>/..." for
// each of `letters`, or the single "net/tcp/..." when `letters` is empty.
class PELL_EXPORT CReceiverPortTCP_PP : public CReceiverPortPage {
    Q_OBJECT
public:
    CReceiverPortTCP_PP(std::shared_ptr<rxio::IReceiver> receiver, const QStringList& letters,
                        QWidget* parent = nullptr);
};

// The UDP port number.
class PELL_EXPORT CReceiverPortUDP_PP : public CReceiverPortPage {
    Q_OBJECT
public:
    explicit CReceiverPortUDP_PP(std::shared_ptr<rxio::IReceiver> receiver,
                                 QWidget* parent = nullptr);
};

// A modem port's settings: the serial port it sits on, its mode and what it reports.
class PELL_EXPORT CReceiverPortComModemPP : public CReceiverPortPage {
    Q_OBJECT
public:
    CReceiverPortComModemPP(std::shared_ptr<rxio::IReceiver> receiver, const ReceiverPort& modem,
                            QWidget* parent = nullptr);
};

// The drivers stored for a modem, one per slot "dev/modem/<x>/jps/<n>". Deleting one, after the
// user confirmed, happens at once ("remove,<slot>"): a deleted driver cannot be put back, so
// Cancel does not bring it back either.
class PELL_EXPORT CReceiverPortComDriverPP : public CReceiverPortPage {
    Q_OBJECT
public:
    CReceiverPortComDriverPP(std::shared_ptr<rxio::IReceiver> receiver, const ReceiverPort& modem,
                             QWidget* parent = nullptr);

    // Deletes the selected driver after asking; whether it was deleted.
    bool DeleteSelected();

protected:
    void OnValuesRead() override;

private:
    QString m_modem;
    QTreeWidget* m_slots;
    QPushButton* m_delete;
};

// The receiver's ports: a page per serial port, the general settings of the others, a page per
// group of ports it has, and the settings of its TCP server, UDP port and modems.
class PELL_EXPORT CReceiverPortsPS : public CParameterSheet {
    Q_OBJECT
public:
    explicit CReceiverPortsPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

    const std::vector<ReceiverPort>& Ports() const { return m_ports; }
    // The controller's own port, or null when the receiver did not name one of its ports.
    const ReceiverPort* Controller() const;
    // How many Applies went through since the sheet opened.
    int AppliedCount() const { return m_applied; }

protected:
    void OnChangesApplied() override;

private:
    // The ports are found first: the sheet records only the kinds the receiver has.
    CReceiverPortsPS(std::shared_ptr<rxio::IReceiver> receiver,
                     std::optional<std::vector<ReceiverPort>> ports, QWidget* parent);

    std::vector<ReceiverPort> m_ports;
    int m_applied = 0;
};

// Shows the receiver ports sheet modally; IDOK or IDCANCEL.
PELL_EXPORT int run_ReceiverPortsPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent);
