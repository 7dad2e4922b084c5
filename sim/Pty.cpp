// The simulator's one platform file: pseudo-terminals exist on POSIX systems only.
#include "Pty.h"

#include <QSocketNotifier>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

namespace rxsim {

CPty::CPty() {
    m_fd = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (m_fd < 0 || grantpt(m_fd) != 0 || unlockpt(m_fd) != 0)
        throw std::runtime_error("cannot create a pseudo-terminal");
    m_slavePath = QString::fromLocal8Bit(ptsname(m_fd));
    m_keepOpen = ::open(ptsname(m_fd), O_RDWR | O_NOCTTY);
    if (m_keepOpen >= 0) {
        // Raw bytes both ways: no echo, no line editing, no CR/LF translation.
        termios tio{};
        tcgetattr(m_keepOpen, &tio);
        cfmakeraw(&tio);
        tcsetattr(m_keepOpen, TCSANOW, &tio);
    }
    m_notifier = new QSocketNotifier(static_cast<qintptr>(m_fd), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        Fill();
        if (!m_buffer.isEmpty())
            emit readyRead();
    });
    open(QIODevice::ReadWrite | QIODevice::Unbuffered);
}

CPty::~CPty() {
    close();
    if (m_keepOpen >= 0)
        ::close(m_keepOpen);
    if (m_fd >= 0)
        ::close(m_fd);
}

qint64 CPty::bytesAvailable() const {
    return m_buffer.size() + QIODevice::bytesAvailable();
}

void CPty::Fill() {
    char chunk[4096];
    for (;;) {
        const ssize_t n = ::read(m_fd, chunk, sizeof chunk);
        if (n <= 0)
            break;
        m_buffer.append(chunk, static_cast<qsizetype>(n));
    }
}

qint64 CPty::readData(char* data, qint64 maxSize) {
    const qint64 count = std::min<qint64>(maxSize, m_buffer.size());
    std::copy_n(m_buffer.constData(), count, data);
    m_buffer.remove(0, count);
    return count;
}

qint64 CPty::writeData(const char* data, qint64 size) {
    qint64 written = 0;
    while (written < size) {
        const ssize_t n = ::write(m_fd, data + written, static_cast<size_t>(size - written));
        if (n < 0 && errno == EAGAIN) {
            // Nobody reads the line (a streaming receiver with no controller on it): like a
            // serial line, it sends into the void rather than stall the receiver.
            pollfd ready{m_fd, POLLOUT, 0};
            if (poll(&ready, 1, kStallMs) <= 0)
                return size;
            continue;
        }
        if (n <= 0)
            return written > 0 ? written : -1;
        written += n;
    }
    return written;
}

} // namespace rxsim
