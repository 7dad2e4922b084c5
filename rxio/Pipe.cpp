#include "rxio/Pipe.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QMetaObject>
#include <QPointer>

namespace rxio {

std::pair<std::unique_ptr<CPipeEnd>, std::unique_ptr<CPipeEnd>> CPipeEnd::CreatePair() {
    std::unique_ptr<CPipeEnd> a(new CPipeEnd);
    std::unique_ptr<CPipeEnd> b(new CPipeEnd);
    a->m_peer = b.get();
    b->m_peer = a.get();
    a->open(QIODevice::ReadWrite | QIODevice::Unbuffered);
    b->open(QIODevice::ReadWrite | QIODevice::Unbuffered);
    return {std::move(a), std::move(b)};
}

CPipeEnd::~CPipeEnd() {
    close();
}

qint64 CPipeEnd::bytesAvailable() const {
    return m_incoming.size() + QIODevice::bytesAvailable();
}

bool CPipeEnd::waitForReadyRead(int msecs) {
    // The other end lives on this thread: let it run until bytes come.
    const QDeadlineTimer deadline(msecs);
    while (m_incoming.isEmpty() && m_peer != nullptr) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        if (deadline.hasExpired())
            break;
    }
    return !m_incoming.isEmpty();
}

void CPipeEnd::close() {
    if (m_peer != nullptr) {
        m_peer->PeerClosed();
        m_peer = nullptr;
    }
    QIODevice::close();
}

qint64 CPipeEnd::readData(char* data, qint64 maxSize) {
    const qint64 count = std::min<qint64>(maxSize, m_incoming.size());
    std::copy_n(m_incoming.constData(), count, data);
    m_incoming.remove(0, count);
    if (count == 0 && m_peer == nullptr)
        return -1;
    return count;
}

qint64 CPipeEnd::writeData(const char* data, qint64 size) {
    if (m_peer == nullptr)
        return -1;
    m_peer->Receive(QByteArray(data, size));
    emit bytesWritten(size);
    return size;
}

void CPipeEnd::Receive(const QByteArray& bytes) {
    m_incoming.append(bytes);
    if (m_announced)
        return;
    m_announced = true;
    // Announced from the event loop, as a socket would, never inside the writer's call.
    QMetaObject::invokeMethod(
        this,
        [self = QPointer<CPipeEnd>(this)] {
            if (!self)
                return;
            self->m_announced = false;
            if (!self->m_incoming.isEmpty())
                emit self->readyRead();
        },
        Qt::QueuedConnection);
}

void CPipeEnd::PeerClosed() {
    m_peer = nullptr;
    QMetaObject::invokeMethod(
        this,
        [self = QPointer<CPipeEnd>(this)] {
            if (self)
                emit self->readChannelFinished();
        },
        Qt::QueuedConnection);
}

} // namespace rxio
