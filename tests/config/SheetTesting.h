#pragma once

#include "SimulatedReceiver.h"
#include "config/ParameterDialog.h"
#include "config/ParameterPage.h"
#include "lib/PropertySheet.h"
#include "receiver/VexReceiverMate.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <type_traits>

// What the tests of configuration sheets do the way a user would.
namespace pell::test {

inline QStringList Titles(const CPropertySheetBase& sheet) {
    QStringList titles;
    for (int i = 0; i < sheet.GetPageCount(); ++i)
        titles << sheet.GetPage(i)->GetTitle();
    return titles;
}

// Activates page `index` (it reads its values when first shown) and returns it.
inline CParameterPage& Page(CPropertySheetBase& sheet, int index) {
    sheet.SetActivePage(index);
    return *static_cast<CParameterPage*>(sheet.GetPage(index));
}

// The page with `title`.
inline CParameterPage& Page(CPropertySheetBase& sheet, const QString& title) {
    return Page(sheet, int(Titles(sheet).indexOf(title)));
}

inline void Click(QWidget& window, const char* button) {
    window.findChild<QPushButton*>(QLatin1String(button))->click();
}

// Changes a control the way a user would; false for one that cannot change.
inline bool Change(QWidget* control) {
    if (auto* box = qobject_cast<QComboBox*>(control)) {
        if (box->count() < 2)
            return false;
        box->setCurrentIndex((box->currentIndex() + 1) % box->count());
    } else if (auto* check = qobject_cast<QCheckBox*>(control)) {
        check->toggle();
    } else if (auto* spin = qobject_cast<QSpinBox*>(control)) {
        spin->setValue(spin->value() < spin->maximum() ? spin->value() + 1 : spin->value() - 1);
    } else if (auto* real = qobject_cast<QDoubleSpinBox*>(control)) {
        real->setValue(real->value() < real->maximum() ? real->value() + 1 : real->value() - 1);
    } else if (auto* edit = qobject_cast<QLineEdit*>(control);
               edit && !qobject_cast<QAbstractSpinBox*>(edit->parentWidget())) {
        edit->setText(edit->text() + QLatin1Char('X'));
        emit edit->textEdited(edit->text());
    } else {
        return false;
    }
    return true;
}

// The commands that changed the receiver since it had received `before`: reads, and the probes
// that send nothing out of a port, left out.
inline QStringList WritesSince(SimulatedReceiver& receiver, qint64 before) {
    const QStringList& received = receiver.Simulator().ReceivedCommands();
    return received.mid(received.size() - (receiver.Simulator().ReceivedCount() - before))
        .filter(QRegularExpression(QStringLiteral(R"(^(?!print,|list,|out,[^,]*,""$))")));
}

// Runs `drive` on the dialog that `open` shows modally, once it has read its values.
template <class Dialog = CParameterDialog>
void WithDialog(SimulatedReceiver& receiver, const std::function<void()>& open,
                const std::function<void(std::type_identity_t<Dialog>&)>& drive) {
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog || CVexReceiverMate::IsPending(receiver.Receiver().get()))
            return;
        poll.stop();
        drive(*dialog);
    });
    poll.start(10);
    open();
}

// Changes every shown control of every page alone and applies it, as a user would one at a time:
// each must send exactly one command, of the form `command`, and leave nothing pending. Returns
// the commands written.
inline QStringList ApplyEachControl(SimulatedReceiver& receiver, CPropertySheetBase& sheet,
                                    const QRegularExpression& command) {
    QStringList written;
    for (int index = 0; index < sheet.GetPageCount(); ++index) {
        CParameterPage& page = Page(sheet, index);
        EXPECT_TRUE(page.PendingCommands().isEmpty()) << page.GetTitle().toStdString();
        for (QWidget* control : page.findChildren<QWidget*>()) {
            if (!control->isVisible() || !control->isEnabled() || !Change(control))
                continue;
            const QStringList pending = page.PendingCommands();
            EXPECT_EQ(pending.size(), 1) << control->metaObject()->className();
            for (const QString& one : pending)
                EXPECT_TRUE(command.match(one).hasMatch()) << one.toStdString();
            const qint64 before = receiver.Simulator().ReceivedCount();
            Click(sheet, "applyButton");
            // Besides the one write, only reads: the settings recorded afresh for Cancel.
            EXPECT_EQ(WritesSince(receiver, before), pending);
            EXPECT_TRUE(page.PendingCommands().isEmpty());
            written << pending;
        }
    }
    return written;
}

// The simulated receiver with the replies to some commands replaced: a receiver that names odd
// things or fails a read.
class RewritingReceiver final : public rxio::IReceiver {
public:
    explicit RewritingReceiver(std::shared_ptr<rxio::IReceiver> inner)
        : m_inner(std::move(inner)) {}

    std::map<QString, rxio::CommandResult> replies; // by command

    CommandId StartCommand(const QString& command, int timeoutMs, Completion done) override {
        const auto replaced = replies.find(command);
        if (replaced == replies.end())
            return m_inner->StartCommand(command, timeoutMs, std::move(done));
        // A harmless read keeps the answer as late as a real one.
        return m_inner->StartCommand(QStringLiteral("print,rcv/model"), timeoutMs,
                                     [done = std::move(done), result = replaced->second](
                                         const rxio::CommandResult&) { done(result); });
    }
    void Abandon(CommandId id) override { m_inner->Abandon(id); }
    bool Post(const QString& command) override { return m_inner->Post(command); }
    bool IsConnected() const override { return m_inner->IsConnected(); }
    void RegisterNotice(const std::shared_ptr<rxio::INotice>& notice,
                        rxio::ENotification kind) override {
        m_inner->RegisterNotice(notice, kind);
    }
    void RegisterSatListListener(const std::shared_ptr<rxio::ISatListListener>& listener) override {
        m_inner->RegisterSatListListener(listener);
    }
    void
    RegisterPositionListener(const std::shared_ptr<rxio::IPositionListener>& listener) override {
        m_inner->RegisterPositionListener(listener);
    }
    rxio::CAlmanacStorage& Almanacs() override { return m_inner->Almanacs(); }
    rxio::IPort& Port() override { return m_inner->Port(); }
    void SuspendPort() override { m_inner->SuspendPort(); }
    void ResumePort() override { m_inner->ResumePort(); }
    rxio::ReceiverIdentity Identity() const override { return m_inner->Identity(); }

private:
    std::shared_ptr<rxio::IReceiver> m_inner;
};

} // namespace pell::test
