#pragma once

#include "rxio/rxio_export.h"

#include <QByteArray>
#include <QIODevice>
#include <memory>
#include <utility>

namespace rxio {

// One end of an in-memory, two-way byte stream. What one end writes, the other reads; the
// other end learns of it through readyRead from the event loop, as with a socket. Closing one
// end finishes the other's read channel.
class RXIO_EXPORT CPipeEnd final : public QIODevice {
    Q_OBJECT
public:
    ~CPipeEnd() override;

    // Two connected, open ends.
    static std::pair<std::unique_ptr<CPipeEnd>, std::unique_ptr<CPipeEnd>> CreatePair();

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override;
    bool waitForReadyRead(int msecs) override;
    void close() override;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    CPipeEnd() = default;
    void Receive(const QByteArray& bytes);
    void PeerClosed();

    CPipeEnd* m_peer = nullptr;
    QByteArray m_incoming;
    bool m_announced = false;
};

} // namespace rxio
