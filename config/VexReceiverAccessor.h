#pragma once

#include "config/VOXA2JSON.h"
#include "lib/pell_export.h"
#include "receiver/VexReceiverMate.h"

#include <memory>
#include <stop_token>

// The settings-file engine's link to a connected receiver: each command runs through a receiver
// mate on the receiver's own thread. A refused command becomes the variable's error text; a
// cancel request, a lost connection or another command of this thread still waiting ends the
// whole walk instead (the CWinException goes on to the caller): none is the receiver's answer.
class PELL_EXPORT CVexReceiverAccessor final : public VOXA2JSON::ReceiverAccessor {
public:
    explicit CVexReceiverAccessor(std::shared_ptr<rxio::IReceiver> receiver);

    void SetCancel(std::stop_token cancel) { m_mate.SetCancel(std::move(cancel)); }
    VOXA2JSON::Reply Execute(const QString& command) override;

private:
    CVexReceiverMate m_mate;
};
