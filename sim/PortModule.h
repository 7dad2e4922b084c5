#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <optional>

class QIODevice;
class QTimer;

namespace rxsim {

// Faults a module behind a receiver port can be told to show. Not every module knows every one:
// the classic module has no escape, no busy state and no product check.
struct ModuleFaults {
    bool splitReplies = false;  // every reply written one byte at a time, the event loop between
    bool errorBeforeOk = false; // "ERROR=BUSY\r\n" ahead of every command's reply (BLE)
    bool silent = false;        // hears nothing, so answers nothing, as a hung module
    bool notBle = false;        // the product check answers "SPP" (BLE)
};

// A command line read byte by byte: it ends at CR, at LF, or at CR LF (the LF then starts no
// second, empty line). An over-long line keeps only its head, enough to be refused.
class CLineBuffer {
public:
    static constexpr qsizetype kMaxLine = 512;

    // The finished line when `c` ends one.
    std::optional<QByteArray> Add(char c);
    const QByteArray& Partial() const { return m_line; }
    void Clear();

private:
    QByteArray m_line;
    bool m_afterCr = false;
};

// A device behind one of the receiver's ports. It hears exactly the bytes the receiver passes
// to that port and answers on it; the simulator owns it for its whole life, so its settings
// outlive every controller connection.
class CPortModule : public QObject {
    Q_OBJECT
public:
    ModuleFaults& GetFaults() { return m_faults; }
    // The module's end of its port.
    void Attach(QIODevice* device);

protected:
    explicit CPortModule(QObject* parent);
    virtual void Hear(const QByteArray& bytes) = 0;
    void Reply(const QByteArray& bytes);

private:
    void WriteNextByte();

    ModuleFaults m_faults;
    QPointer<QIODevice> m_device;
    QByteArray m_queued; // split replies not yet written
    QTimer* m_byteTimer = nullptr;
};

} // namespace rxsim
