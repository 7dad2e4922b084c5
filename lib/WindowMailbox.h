#pragma once

#include "lib/pell_export.h"

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

// Hands actions from other threads (a window's worker) to the thread the mailbox lives on, in
// the order they were posted. The actions travel under a standard mutex, not inside Qt's event,
// so that the hand-over is one the ThreadSanitizer preset can see.
class PELL_EXPORT CWindowMailbox final : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // From any thread: `action` runs on the mailbox's thread, later, unless the mailbox is gone.
    void Post(std::function<void()> action);
    // On the mailbox's thread: while `hold` says so, actions wait (looked at again every 10 ms).
    void SetHold(std::function<bool()> hold) { m_hold = std::move(hold); }

private:
    Q_INVOKABLE void Deliver();

    std::function<bool()> m_hold;
    std::mutex m_mutex;
    std::deque<std::function<void()>> m_actions;
};
