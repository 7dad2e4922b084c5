#pragma once

#include <QIODevice>
#include <QString>
#include <memory>

class QSocketNotifier;

namespace rxsim {

// The controller end of a pseudo-terminal: a program opens SlavePath() as a serial port.
class CPty final : public QIODevice {
    Q_OBJECT
public:
    // Throws std::runtime_error when the system has no pseudo-terminals to give.
    CPty();
    ~CPty() override;

    // How long a write waits for a line nobody reads before its bytes are dropped.
    static constexpr int kStallMs = 100;

    QString SlavePath() const { return m_slavePath; }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    void Fill();

    int m_fd = -1;
    int m_keepOpen = -1; // a slave descriptor held so the master never sees a hang-up
    QString m_slavePath;
    QByteArray m_buffer;
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace rxsim
