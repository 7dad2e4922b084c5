#pragma once

#include "config/KeyedList.h"
#include "config/ParameterDialog.h"
#include "config/ParameterPage.h"
#include "config/ParameterSheet.h"
#include "lib/PellDialog.h"
#include "lib/pell_export.h"

#include <array>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QTreeWidget;

// The account the receiver sends its messages from: user and password, and the outgoing server,
// edited in its own dialog and shown here as one line.
class PELL_EXPORT CNotifications_EMailAccountPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNotifications_EMailAccountPP(std::shared_ptr<rxio::IReceiver> receiver,
                                           QWidget* parent = nullptr);

    // Opens the outgoing server's dialog; the server line shows what it wrote.
    void EditServer();
    // "host : port", or "Not set" while the receiver has no host.
    QString ServerLine() const;

protected:
    void OnValuesRead() override;

private:
    QLabel* m_host;
    QLabel* m_port;
    QLabel* m_serverLine;
};

// The outgoing (SMTP) server: host, port, how the receiver logs in and how it encrypts.
class PELL_EXPORT CNotifications_ServerCfgDlg : public CParameterDialog {
    Q_OBJECT
public:
    explicit CNotifications_ServerCfgDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                         QWidget* parent = nullptr);

    QString Host() const;
    int Port() const;

private:
    QLineEdit* m_host;
    QSpinBox* m_port;
};

// One event that sends a message: its threshold and, for some, how often the message repeats
// while the condition lasts.
struct NotificationEvent {
    unsigned description; // string id
    const char* threshold;
    bool real;            // the threshold is a real number, else a signed one
    int minimum, maximum; // the threshold's range
    const char* period;   // null: the event is notified once
};

// The events the receiver watches, in the order the page lists them.
PELL_EXPORT const std::array<NotificationEvent, 5>& NotificationEvents();

// The events with their thresholds; a row is edited in the event dialog.
class PELL_EXPORT CNotifications_EventsPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNotifications_EventsPP(std::shared_ptr<rxio::IReceiver> receiver,
                                     QWidget* parent = nullptr);

    QTreeWidget& View() const { return *m_list; }
    // Opens the event dialog for the selected row.
    void EditEvent();

protected:
    void OnValuesRead() override;

private:
    void Fill();

    struct Row {
        QLabel* threshold;
        QLabel* period;
        bool known = false;       // the receiver has the threshold
        bool periodKnown = false; // and the period
    };
    std::array<Row, 5> m_rows;
    QTreeWidget* m_list;
};

// One event: its threshold, and whether its message is sent once or repeated every so many
// seconds. Written on its own OK.
class PELL_EXPORT CNotifications_EventDlg : public CParameterDialog {
    Q_OBJECT
public:
    // `event`: the index into NotificationEvents().
    CNotifications_EventDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent, int event);

    // The threshold and period as the receiver now holds them (period 0: once).
    QString Threshold() const;
    int Period() const;

private:
    // The period box follows the choice: 0 and greyed when once.
    void FollowChoice();
    void ShowChoice();

    int m_event;
    QWidget* m_threshold;
    QRadioButton* m_once;
    QRadioButton* m_periodically;
    QSpinBox* m_period;
};

// The people the receiver writes to, each with the least severe level of message they get.
// Edited in memory and written with the sheet's Apply or OK.
class PELL_EXPORT CNotifications_WatchersPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNotifications_WatchersPP(std::shared_ptr<rxio::IReceiver> receiver,
                                       QWidget* parent = nullptr);

    CKeyedList& Watchers() { return m_watchers; }
    QTreeWidget& View() const { return *m_list; }
    void AddWatcher();
    void EditWatcher();
    void DeleteWatcher();

private:
    void Fill();
    // The watcher dialog for `row` (-1: a new watcher).
    void Edit(int row);

    CKeyedList m_watchers;
    QTreeWidget* m_list;
    // Greyed with the list when it could not be read: an edit of a list nobody has seen could
    // overwrite the receiver's watchers.
};

// One watcher: the address and the warning level. Edits the values in memory; the watchers page
// writes them.
class PELL_EXPORT CNotifications_WatcherDlg : public CPellDialog {
    Q_OBJECT
public:
    // `index`: the watcher's index on the receiver, -1 for one not written yet.
    CNotifications_WatcherDlg(const CKeyedList::Values& watcher, int index,
                              QWidget* parent = nullptr);

    CKeyedList::Values Watcher() const;
    void accept() override;

    // Whether `address` is one the receiver can send to and a command can carry: see
    // docs/configuration.md, Notifications.
    static bool IsValidAddress(const QString& address);

private:
    CKeyedList::Values m_watcher;
    QLineEdit* m_email;
    QComboBox* m_level;
};

// The notifications sheet.
class PELL_EXPORT CNotificationsPS : public CParameterSheet {
    Q_OBJECT
public:
    explicit CNotificationsPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);
};

// Shows the notifications sheet modally; IDOK or IDCANCEL.
PELL_EXPORT int run_NotificationsPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent);
