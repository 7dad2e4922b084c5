#pragma once

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "receiver/SettingsTree.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QDebug>
#include <QString>
#include <QStringList>
#include <exception>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace pell {

// Records receiver settings when constructed and puts them back when destroyed, also when an
// exception ends the operation in between, so that the operation leaves the receiver as it
// found it. An operation whose changes are meant to stay calls Keep() once it succeeded.
//
// What it records is given either as one port's settings record, or as path masks: "net/*" is
// every parameter below "net" (list items included: items the operation added are removed,
// items it removed come back), a mask without "/*" is that one parameter.
template <class Mate> class CSettingsRestorer {
public:
    // The settings of one receiver port, read from and written back to the receiver.
    class CPortSettings {
    public:
        explicit CPortSettings(QString port) : m_port(std::move(port)) {}
        virtual ~CPortSettings() = default;
        const QString& Port() const { return m_port; }
        virtual void Read(const Mate& mate) = 0;
        // The one line that writes every recorded setting back.
        virtual QString WriteCommand() const = 0;

    private:
        QString m_port;
    };

    // Rate, RTS/CTS, stop bits, parity and data bits of a serial port such as "/dev/ser/a",
    // written back as one line so the port never runs with half of its old settings.
    class CSerialPortSettings final : public CPortSettings {
    public:
        using CPortSettings::CPortSettings;
        void Read(const Mate& mate) override {
            for (std::size_t i = 0; i < std::size(kLeaves); ++i)
                m_values[i] = mate.Run(vexcmd::Print(this->Port() + QLatin1String(kLeaves[i])));
        }
        QString WriteCommand() const override {
            QStringList commands;
            for (std::size_t i = 0; i < std::size(kLeaves); ++i)
                commands << vexcmd::SetChoice(this->Port() + QLatin1String(kLeaves[i]),
                                              m_values[i]);
            return commands.join(QLatin1Char(';'));
        }

    private:
        static constexpr const char* kLeaves[] = {"/rate", "/rtscts", "/stops", "/parity", "/bits"};
        QString m_values[std::size(kLeaves)];
    };

    // The named leaves of a port as they print (`{"imode", "echo", "eoff"}`), written back as
    // one line. A leaf that printed nothing (an unset echo target) cannot be set to nothing: no
    // value can be written empty, so it was at its default, and goes back there with init.
    class CPortLeafSettings final : public CPortSettings {
    public:
        CPortLeafSettings(QString port, QStringList leaves)
            : CPortSettings(std::move(port)), m_leaves(std::move(leaves)) {}
        void Read(const Mate& mate) override {
            m_values.clear();
            for (const QString& leaf : m_leaves)
                m_values << mate.Run(vexcmd::Print(this->Port() + QLatin1Char('/') + leaf));
        }
        QString WriteCommand() const override {
            QStringList commands;
            for (qsizetype i = 0; i < m_values.size(); ++i) {
                const QString leaf = this->Port() + QLatin1Char('/') + m_leaves.at(i);
                commands << (m_values.at(i).isEmpty() ? vexcmd::Init(leaf)
                                                      : vexcmd::SetPrinted(leaf, m_values.at(i)));
            }
            return commands.join(QLatin1Char(';'));
        }

    private:
        QStringList m_leaves;
        QStringList m_values;
    };

    CSettingsRestorer(const Mate& mate, std::unique_ptr<CPortSettings> port)
        : m_mate(Detached(mate)) {
        m_ports.push_back(std::move(port));
        RecordPorts();
    }

    // Two ports that an operation changes together (a pass-through), put back in this order.
    CSettingsRestorer(const Mate& mate, std::unique_ptr<CPortSettings> first,
                      std::unique_ptr<CPortSettings> second)
        : m_mate(Detached(mate)) {
        m_ports.push_back(std::move(first));
        m_ports.push_back(std::move(second));
        RecordPorts();
    }

    CSettingsRestorer(const Mate& mate, const QStringList& masks) : m_mate(Detached(mate)) {
        for (const QString& mask : masks) {
            const bool subtree = mask.endsWith(QLatin1String("/*"));
            const QString path = subtree ? mask.chopped(2) : mask;
            m_masks.push_back({path, subtree, Read(path, subtree)});
        }
    }

    ~CSettingsRestorer() {
        if (m_kept)
            return;
        try {
            Restore();
        } catch (const ulm_std::CException& e) {
            qWarning() << "Receiver settings not fully restored:" << e.GetErrorMessage();
        }
    }

    CSettingsRestorer(const CSettingsRestorer&) = delete;
    CSettingsRestorer& operator=(const CSettingsRestorer&) = delete;

    // The operation succeeded: leave its changes.
    void Keep() { m_kept = true; }

    // Puts everything back now. Tries every setting, then throws the first failure.
    void Restore() {
        m_kept = true;
        std::exception_ptr first;
        const auto attempt = [&first](const auto& step) {
            try {
                step();
            } catch (const ulm_std::CCommException& e) {
                // Values the receiver keeps to itself (states, counters) change on their own.
                if (!Mate::IsAccessDenied(e.GetReply()) && !first)
                    first = std::current_exception();
            } catch (const ulm_std::CWinException&) {
                if (!first)
                    first = std::current_exception();
            }
        };
        for (const auto& port : m_ports)
            attempt([&] {
                const QString command = port->WriteCommand();
                if (!command.isEmpty())
                    m_mate.Run(command);
            });
        for (const Mask& mask : m_masks)
            attempt([&] {
                QStringList skipped;
                for (const QString& command : RestoreCommands(
                         mask.path, mask.recorded, Read(mask.path, mask.subtree), &skipped))
                    attempt([&] { m_mate.Run(command); });
                if (!skipped.isEmpty())
                    PELL_THROW_WIN(g_PellLibApp.XLoadString(ids::RestoringSettings)
                                       .arg(skipped.join(QStringLiteral(", "))),
                                   ERROR_INVALID_PARAMETER);
            });
        if (first)
            std::rethrow_exception(first);
    }

private:
    struct Mask {
        QString path;
        bool subtree;
        SettingsNode recorded;
    };

    // Restoring must go through even when the operation was cancelled.
    static Mate Detached(Mate mate) {
        mate.SetCancel({});
        return mate;
    }

    void RecordPorts() {
        for (const auto& port : m_ports) {
            port->Read(m_mate);
            port->WriteCommand(); // refuses values that cannot be written back, before any change
        }
    }

    SettingsNode Read(const QString& path, bool subtree) const {
        const QString reply =
            m_mate.Run(vexcmd::Print(subtree ? path + QStringLiteral(":on") : path));
        return SettingsNode::Parse(reply, subtree);
    }

    Mate m_mate;
    std::vector<std::unique_ptr<CPortSettings>> m_ports;
    std::vector<Mask> m_masks;
    bool m_kept = false;
};

} // namespace pell
