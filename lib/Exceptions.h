#pragma once

#include "lib/pell_export.h"

#include <QString>
#include <QtGlobal>
#include <exception>
#include <string>
#include <utility>

class QWidget;

namespace ulm_std {

// Base of the library's failures. Caught at the level of one user action or one entry; each
// knows how to explain itself to the user.
class PELL_EXPORT CException : public std::exception {
public:
    // The user-visible explanation, without the source location.
    virtual QString GetErrorMessage() const = 0;
    // Where the failure was raised, as a user-visible line.
    virtual QString GetSourceText() const = 0;
    // Shows the explanation and the source in an error message box; returns the box's result.
    int ReportError(QWidget* owner) const;
    const char* what() const noexcept override;

private:
    mutable std::string m_what;
};

// A platform operation failed with a platform error code (50 not supported, 55 device not
// present, 87 bad parameter, 170 busy, 1168 not found, 1223 cancelled, 1359 internal, 1444 wrong
// thread, 1460 time-out).
class PELL_EXPORT CWinException : public CException {
public:
    CWinException(int line, const char* file, QString operation, unsigned long code);

    int GetLine() const { return m_line; }
    const QString& GetFile() const { return m_file; }
    const QString& GetOperation() const { return m_operation; }
    unsigned long GetErrorCode() const { return m_code; }

    QString GetErrorMessage() const override;
    QString GetSourceText() const override;

    // The user-visible text of a platform error code.
    static QString SystemErrorText(unsigned long code);

private:
    int m_line;
    QString m_file;
    QString m_operation;
    unsigned long m_code;
};

// A device (the receiver, its module) refused or failed a command.
class PELL_EXPORT CCommException : public CException {
public:
    // `device` names the device in the message ("Receiver"); `reply` is its error text.
    CCommException(QString command, QString device, QString reply, QString source);

    const QString& GetCommand() const { return m_command; }
    const QString& GetDevice() const { return m_device; }
    const QString& GetReply() const { return m_reply; }
    const QString& GetSource() const { return m_source; }

    QString GetErrorMessage() const override;
    QString GetSourceText() const override;

private:
    QString m_command;
    QString m_device;
    QString m_reply;
    QString m_source;
};

} // namespace ulm_std

namespace pell {

// Runs one user action. A library exception that escapes it is reported in an error box owned by
// `owner` and false returned, so that it never reaches Qt's event loop.
template <class Action> bool RunAndReport(QWidget* owner, Action&& action) {
    try {
        std::forward<Action>(action)();
        return true;
    } catch (const ulm_std::CException& error) {
        error.ReportError(owner);
        return false;
    }
}

} // namespace pell

// Raises a CWinException that records where it was raised.
#define PELL_THROW_WIN(operation, code)                                                            \
    throw ::ulm_std::CWinException(__LINE__, __FILE__, (operation), (code))

// A misuse that only a programming error can cause (a receiver used from a worker thread, say)
// stops a debug build at once and raises a CWinException in a release build: never ignored.
#define PELL_REQUIRE(condition, operation, code)                                                   \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            Q_ASSERT_X(false, "PELL_REQUIRE", #condition);                                         \
            PELL_THROW_WIN(operation, code);                                                       \
        }                                                                                          \
    } while (false)
