#include "lib/WindowMailbox.h"

#include <QTimer>
#include <utility>

void CWindowMailbox::Post(std::function<void()> action) {
    bool first = false;
    {
        const std::lock_guard lock(m_mutex);
        first = m_actions.empty();
        m_actions.push_back(std::move(action));
    }
    // One wake-up per batch; named by string so that no object of ours crosses threads in it.
    if (first)
        QMetaObject::invokeMethod(this, "Deliver", Qt::QueuedConnection);
}

void CWindowMailbox::Deliver() {
    if (m_hold && m_hold()) {
        QTimer::singleShot(10, this, &CWindowMailbox::Deliver);
        return;
    }
    for (;;) {
        std::function<void()> action;
        {
            const std::lock_guard lock(m_mutex);
            if (m_actions.empty())
                return;
            action = std::move(m_actions.front());
            m_actions.pop_front();
        }
        action();
    }
}
