#include "PortModule.h"

#include <QIODevice>
#include <QTimer>

namespace rxsim {

std::optional<QByteArray> CLineBuffer::Add(char c) {
    const bool afterCr = std::exchange(m_afterCr, c == '\r');
    if (c == '\n' && afterCr)
        return std::nullopt;
    if (c == '\r' || c == '\n')
        return std::exchange(m_line, {});
    if (m_line.size() <= kMaxLine)
        m_line.append(c);
    return std::nullopt;
}

void CLineBuffer::Clear() {
    m_line.clear();
    m_afterCr = false;
}

CPortModule::CPortModule(QObject* parent) : QObject(parent), m_byteTimer(new QTimer(this)) {
    // A millisecond apart rather than at once: a reader that polls between turns of the event
    // loop then really meets the pieces.
    m_byteTimer->setInterval(1);
    m_byteTimer->setTimerType(Qt::PreciseTimer);
    connect(m_byteTimer, &QTimer::timeout, this, &CPortModule::WriteNextByte);
}

void CPortModule::Attach(QIODevice* device) {
    if (m_device)
        disconnect(m_device, nullptr, this, nullptr);
    m_device = device;
    connect(device, &QIODevice::readyRead, this, [this] {
        const QByteArray bytes = m_device->readAll();
        if (!m_faults.silent)
            Hear(bytes);
    });
}

void CPortModule::Reply(const QByteArray& bytes) {
    if (!m_device || m_faults.silent)
        return;
    // A reply is one write, so that whoever reads it finds it whole unless told otherwise.
    if (!m_faults.splitReplies && m_queued.isEmpty()) {
        m_device->write(bytes);
        return;
    }
    m_queued += bytes;
    if (!m_byteTimer->isActive())
        m_byteTimer->start();
}

void CPortModule::WriteNextByte() {
    if (m_device && !m_queued.isEmpty()) {
        m_device->write(m_queued.left(1));
        m_queued.remove(0, 1);
    }
    if (!m_device || m_queued.isEmpty()) {
        m_queued.clear();
        m_byteTimer->stop();
    }
}

} // namespace rxsim
