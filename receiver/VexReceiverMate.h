#pragma once

#include "lib/pell_export.h"
#include "rxio/Receiver.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <stop_token>
#include <utility>
#include <vector>

// Runs one command of the receiver language and turns its reply into a value or a failure.
// The wait keeps the window alive: events are dispatched until the reply comes, so a window
// stays painted and a Cancel button can be pressed.
//
// Failures (all from the ulm_std family):
// - CCommException (device "Receiver") for an error reply or a reply the validator rejects;
//   "{2,,access denied}" is a success for "em," and "out," (the port takes no output then);
// - CWinException ERROR_TIMEOUT when the receiver does not answer in time, ERROR_CANCELLED when
//   the cancel request came first, ERROR_DEV_NOT_EXIST when the connection is gone (the wait
//   itself failed), ERROR_BUSY when another command of this thread is still waiting for the
//   same receiver, ERROR_INVALID_PARAMETER when the connection refused to send a line that would
//   not stay one command, ERROR_INTERNAL_ERROR when the wait ended without any of these.
//
// A mate runs on the receiver's own thread (the window's). Run from any other thread, a worker's
// say, stops a debug build with an assertion and throws ERROR_INVALID_THREAD_ID otherwise; a
// worker hands its receiver work to the window (CPellBaseWnd::CallOnWindow).
class PELL_EXPORT CVexReceiverMate {
public:
    static constexpr int kDefaultTimeoutMs = 5000;

    enum EQuotes {
        KeepQuotes,
        RemoveQuotes, // a reply that is one quoted text comes back as the text itself
    };
    using Validator = std::function<bool(const QString& reply)>;

    // `keepAlive` false still waits in an event loop (replies arrive through it) but leaves
    // the user's input queued until the reply is in.
    explicit CVexReceiverMate(std::shared_ptr<rxio::IReceiver> receiver, bool keepAlive = true);

    // A stop requested on the token's source ends the waiting command with ERROR_CANCELLED.
    // Safe to request from any thread.
    void SetCancel(std::stop_token cancel) { m_cancel = std::move(cancel); }
    void SetTimeout(int ms) { m_timeoutMs = ms; }
    const std::shared_ptr<rxio::IReceiver>& Receiver() const { return m_receiver; }

    // Runs `command` and returns its reply trimmed of blanks at both ends.
    QString Run(const QString& command, EQuotes quotes = KeepQuotes,
                const Validator& validator = {}) const;
    // Whether a command of this thread is waiting for `receiver`.
    static bool IsPending(const rxio::IReceiver* receiver);
    // The receiver's refusal of a port that takes no output, or of a value it keeps to itself.
    static bool IsAccessDenied(const QString& reply);

    // Receivers whose Bluetooth LE module sits on port 950 ("dev/ble/a"): the Ostrel family
    // ("Ostrel Q", "Ostrel W") and the Pardo family ("Pardo7"). Names compare without case.
    static bool IsOstrelFamily(const QString& model);
    static bool IsPardoFamily(const QString& model);
    // Whether a module port must be set to 115200 baud with RTS/CTS before a pass-through: a
    // module behind one of the receiver's serial ports ("Lumen7", port 103).
    static bool PreparesModulePort(const QString& model);
    // The receiver's model name: from the connection's identity, or read when it has none.
    QString Model() const;

    // set,<port>/rate,<rate> and set,<port>/rtscts,<on|off>.
    void SetPortRate(const QString& port, const QString& rate) const;
    void SetPortRtsCts(const QString& port, bool on) const;
    // Takes `port` away from the service and the messages that use it.
    void ReleasePort(const QString& port) const;
    // Passes the controller's port through to `module` until `terminator`; a serial controller
    // port lends its line settings to the module's port.
    void StartEcho(const QString& module, const QString& terminator) const;
    // Writes `text` as UTF-8 straight to the port, past the connection (during a pass-through).
    void WriteRaw(const QString& text) const;
    // The controller's port reads commands again.
    void EndEcho() const;

    // {a,b} → a,b; anything not enclosed in one pair of braces is returned as it is.
    static QString StripBraces(const QString& text);
    // Elements at the outermost level: "{a,{b,c},"d,e"}" → a, {b,c}, "d,e". Empty gives none.
    static QStringList SplitList(const QString& text);
    // A message set's name as the receiver gives it, fit to go into a command as it is: words
    // joined by slashes ("nmea/GGA").
    static bool IsMessageSetName(const QString& name);
    // index=value elements, index 0..255. Anything else fails the whole read with
    // ERROR_INVALID_PARAMETER and `operation` as the operation's name.
    static std::vector<std::pair<unsigned, QString>> SplitKeyedList(const QString& text,
                                                                    const QString& operation);
    // key=value elements of a record, braces optional; elements without a key are left out.
    static std::map<QString, QString> SplitRecord(const QString& text);
    // A keyed list of records, keeping only the records that have every one of `keys`.
    static std::vector<std::pair<unsigned, std::map<QString, QString>>>
    SplitKeyedRecords(const QString& text, const QString& operation, const QStringList& keys);

private:
    std::shared_ptr<rxio::IReceiver> m_receiver;
    bool m_keepAlive;
    int m_timeoutMs = kDefaultTimeoutMs;
    std::stop_token m_cancel;
};
