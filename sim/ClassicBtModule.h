#pragma once

#include "PortModule.h"

#include <QString>

namespace rxsim {

// What the classic Bluetooth module keeps for the simulator's lifetime.
struct ClassicBtSettings {
    QString name = QStringLiteral("PELL-BT"); // 1 to 248 bytes of UTF-8, Bluetooth's own limit
    QString pin;                              // empty: none; else 1 to 16 printable ASCII
    bool authentication = false;
    bool encryption = false;

    bool operator==(const ClassicBtSettings&) const = default;
};

// The classic Bluetooth module: always in command mode, one line a command, every answer
// framed "\r\n<text>\r\n" (docs/simulator.md).
class CClassicBtModule final : public CPortModule {
    Q_OBJECT
public:
    explicit CClassicBtModule(QObject* parent = nullptr);

    const ClassicBtSettings& Settings() const { return m_settings; }

private:
    void Hear(const QByteArray& bytes) override;
    QByteArray Run(const QString& line);

    ClassicBtSettings m_settings;
    CLineBuffer m_line;
};

} // namespace rxsim
