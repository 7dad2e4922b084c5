#include "lib/Exceptions.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QFileInfo>

namespace ulm_std {

using namespace pell::ids;

int CException::ReportError(QWidget* owner) const {
    const QString text = GetErrorMessage() + QStringLiteral("\n\n") + GetSourceText();
    return static_cast<int>(g_PellLibApp.MessageBox(owner, text, pell::MB_OK | pell::MB_ICONERROR));
}

const char* CException::what() const noexcept {
    if (m_what.empty())
        m_what = GetErrorMessage().toStdString();
    return m_what.c_str();
}

CWinException::CWinException(int line, const char* file, QString operation, unsigned long code)
    : m_line(line), m_file(QFileInfo(QString::fromUtf8(file)).fileName()),
      m_operation(std::move(operation)), m_code(code) {}

QString CWinException::SystemErrorText(unsigned long code) {
    switch (code) {
    case pell::ERROR_NOT_SUPPORTED:
        return g_PellLibApp.XLoadString(ErrorNotSupported);
    case pell::ERROR_DEV_NOT_EXIST:
        return g_PellLibApp.XLoadString(ErrorDeviceNotPresent);
    case pell::ERROR_INVALID_PARAMETER:
        return g_PellLibApp.XLoadString(ErrorInvalidParameter);
    case pell::ERROR_BUSY:
        return g_PellLibApp.XLoadString(ErrorBusy);
    case pell::ERROR_NOT_FOUND:
        return g_PellLibApp.XLoadString(ErrorNotFound);
    case pell::ERROR_CANCELLED:
        return g_PellLibApp.XLoadString(ErrorCancelled);
    case pell::ERROR_INTERNAL_ERROR:
        return g_PellLibApp.XLoadString(ErrorInternal);
    case pell::ERROR_INVALID_THREAD_ID:
        return g_PellLibApp.XLoadString(ErrorWrongThread);
    case pell::ERROR_TIMEOUT:
        return g_PellLibApp.XLoadString(ErrorTimeout);
    default:
        return g_PellLibApp.XLoadString(UnknownSystemError);
    }
}

QString CWinException::GetErrorMessage() const {
    return g_PellLibApp.XLoadString(WinErrorFormat)
        .arg(m_operation, SystemErrorText(m_code), QString::number(m_code));
}

QString CWinException::GetSourceText() const {
    return g_PellLibApp.XLoadString(ErrorSourceLine).arg(m_file).arg(m_line);
}

CCommException::CCommException(QString command, QString device, QString reply, QString source)
    : m_command(std::move(command)), m_device(std::move(device)), m_reply(std::move(reply)),
      m_source(std::move(source)) {}

QString CCommException::GetErrorMessage() const {
    QString text = g_PellLibApp.XLoadString(CommErrorCommand).arg(m_command);
    if (!m_reply.isEmpty())
        text += QLatin1Char('\n') + g_PellLibApp.XLoadString(CommErrorReply).arg(m_device, m_reply);
    return text;
}

QString CCommException::GetSourceText() const {
    return g_PellLibApp.XLoadString(ErrorSourceTag).arg(m_source);
}

} // namespace ulm_std
