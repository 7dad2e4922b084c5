#include "config/VexReceiverAccessor.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"

CVexReceiverAccessor::CVexReceiverAccessor(std::shared_ptr<rxio::IReceiver> receiver)
    : m_mate(std::move(receiver)) {}

VOXA2JSON::Reply CVexReceiverAccessor::Execute(const QString& command) {
    try {
        return {true, m_mate.Run(command)};
    } catch (const ulm_std::CCommException& error) {
        return {false, error.GetReply()};
    } catch (const ulm_std::CWinException& error) {
        // None of these is the receiver's answer, and none may be remembered as one.
        if (error.GetErrorCode() == pell::ERROR_CANCELLED ||
            error.GetErrorCode() == pell::ERROR_DEV_NOT_EXIST ||
            error.GetErrorCode() == pell::ERROR_BUSY)
            throw;
        return {false, error.GetErrorMessage()};
    }
}
