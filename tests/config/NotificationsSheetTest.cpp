#include "SheetTesting.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "config/NotificationsPS.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "receiver/VexCommands.h"
#include "resources/StringIds.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QLocale>
#include <QRadioButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

using namespace pell::test;
using Sheet = CPellWindow<CNotificationsPS>;
namespace ids = pell::ids;

QStringList Said(const ScopedPresenter& boxes) {
    QStringList said;
    for (const auto& box : boxes.Boxes())
        said << box.text;
    return said;
}

// The pages; each control of a page, changed alone, writes one command of its kind, and the
// server dialog's controls theirs on its OK, after which the server line shows them.
TEST(NotificationsSheetTest, EachControlWritesOneCommandOfItsKind) {
    SimulatedReceiver receiver;
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    EXPECT_EQ(Titles(sheet),
              (QStringList{XString(ids::NotifAccountPage), XString(ids::NotifEventsPage),
                           XString(ids::NotifWatchersPage)}));
    EXPECT_EQ(
        ApplyEachControl(receiver, sheet, QRegularExpression(QStringLiteral(".*"))),
        (QStringList{"set,/app/notif/email/user,\"X\"", "set,/app/notif/email/password,\"X\""}));

    auto& account = static_cast<CNotifications_EMailAccountPP&>(Page(sheet, 0));
    EXPECT_EQ(account.ServerLine(), XString(ids::NotSet));
    WithDialog<CNotifications_ServerCfgDlg>(
        receiver, [&] { Click(account, "serverButton"); },
        [](CNotifications_ServerCfgDlg& dialog) {
            for (QWidget* control : dialog.Body().findChildren<QWidget*>())
                if (control->isVisible())
                    Change(control);
            dialog.findChild<QLineEdit*>(QStringLiteral("hostEdit"))
                ->setText(QStringLiteral("smtp.example.com"));
            EXPECT_EQ(
                dialog.Body().PendingCommands(),
                (QStringList{"set,/app/notif/email/host,\"smtp.example.com\"",
                             "set,/app/notif/email/port,26", "set,/app/notif/email/auth,cram-md5",
                             "set,/app/notif/email/tls,on", "set,/app/notif/email/starttls,off"}));
            Click(dialog, "okButton");
        });
    EXPECT_EQ(receiver.Value(QStringLiteral("app/notif/email/port")), QStringLiteral("26"));
    EXPECT_EQ(account.ServerLine(), QStringLiteral("smtp.example.com : 26"));
    EXPECT_TRUE(account.IsModified());
}

// The event dialog writes the threshold of its kind and the period (0: once) on its OK; an event
// without a period is notified once; the sheet's Cancel puts back what the dialogs wrote.
TEST(NotificationsSheetTest, AnEventIsNotifiedOnceOrPeriodically) {
    SimulatedReceiver receiver;
    const QString before = receiver.Value(QStringLiteral("app/notif/pos/dist/max"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    auto& events = static_cast<CNotifications_EventsPP&>(Page(sheet, 1));
    ASSERT_EQ(events.View().topLevelItemCount(), 5);
    EXPECT_EQ(events.View().topLevelItem(4)->text(0), XString(ids::NotifEventBaseOffset));

    const QString no = XString(ids::NotifNo);
    const struct {
        int row;
        double threshold;
        const char* choice;
        QStringList written;
        QString shown; // threshold, period
    } cases[] = {
        {0, 6, "periodicallyButton", {"set,/app/notif/sat/nmb/min,6"}, "6|" + no},
        {1,
         20,
         "periodicallyButton",
         {"set,/app/notif/bat/a/level/min,20", "set,/app/notif/bat/a/level/period,3600"},
         "20|" + XString(ids::NotifEveryPeriod).arg(QLocale().toString(3600))},
        {1, 20, "onceButton", {"set,/app/notif/bat/a/level/period,0"}, "20|" + no},
        {4,
         2.5,
         "onceButton",
         {"set,/app/notif/pos/dist/max,2.500000"},
         QLocale().toString(2.5) + "|" + no},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.written.join(QLatin1Char(';')).toStdString());
        events.View().setCurrentItem(events.View().topLevelItem(c.row));
        WithDialog<CNotifications_EventDlg>(
            receiver, [&] { Click(events, "editButton"); },
            [&](CNotifications_EventDlg& dialog) {
                auto* threshold = dialog.findChild<QWidget*>(QStringLiteral("thresholdBox"));
                if (auto* real = qobject_cast<QDoubleSpinBox*>(threshold))
                    real->setValue(c.threshold);
                else
                    static_cast<QSpinBox*>(threshold)->setValue(int(c.threshold));
                dialog.findChild<QRadioButton*>(QLatin1String(c.choice))->click();
                EXPECT_EQ(dialog.Body().PendingCommands(), c.written);
                Click(dialog, "okButton");
            });
        const QTreeWidgetItem* row = events.View().topLevelItem(c.row);
        EXPECT_EQ(row->text(1) + "|" + row->text(2), c.shown);
    }

    Click(sheet, "cancelButton");
    EXPECT_EQ(receiver.Value(QStringLiteral("app/notif/sat/nmb/min")), QStringLiteral("4"));
    EXPECT_EQ(receiver.Value(QStringLiteral("app/notif/bat/a/level/min")), QStringLiteral("10"));
    EXPECT_EQ(receiver.Value(QStringLiteral("app/notif/pos/dist/max")), before);
}

// Addresses that are no plain address, or that could break out of a command, are refused;
// deleting asks first; the list is written with the sheet's Apply and put back by its Cancel.
TEST(NotificationsSheetTest, WatchersAreCheckedAskedAboutAndWrittenWithTheSheet) {
    for (const char* good : {"a@b.co", "first.last@sub.example.com", "o'brien+gnss@example.ie"})
        EXPECT_TRUE(CNotifications_WatcherDlg::IsValidAddress(QString::fromUtf8(good))) << good;
    for (const char* bad :
         {"", "plain", "@example.com", "a@", "a@example", "a@@example.com", "a b@example.com",
          "\"a\"@example.com", "a,b@example.com", "a@example.com,b@example.com", "a.@example.com",
          "a@-example.com", "a@example..com", "a@example.com\n", "\xC3\xA4@example.com"})
        EXPECT_FALSE(CNotifications_WatcherDlg::IsValidAddress(QString::fromUtf8(bad))) << bad;

    SimulatedReceiver receiver;
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    auto& watchers = static_cast<CNotifications_WatchersPP&>(Page(sheet, 2));
    const auto add = [&](const QString& email, int level) {
        WithDialog<CNotifications_WatcherDlg>(
            receiver, [&] { Click(watchers, "addButton"); },
            [&](CNotifications_WatcherDlg& dialog) {
                dialog.findChild<QLineEdit*>(QStringLiteral("emailEdit"))->setText(email);
                dialog.findChild<QComboBox*>(QStringLiteral("levelBox"))->setCurrentIndex(level);
                Click(dialog, "okButton");
                if (dialog.isVisible()) // refused: the address stays to be mended
                    dialog.reject();
            });
    };
    {
        const ScopedPresenter boxes;
        for (const char* hostile : {"x@example.com\",level=critical", "x@example.com\nset,a,b",
                                    "x@example.com;reset,yes"})
            add(QString::fromLatin1(hostile), 0);
        EXPECT_EQ(Said(boxes), QStringList(3, XString(ids::NotifWrongEmail)));
    }
    add(QStringLiteral("ann@example.com"), 0);
    add(QStringLiteral(" bob@mail.example.org "), 3);
    ASSERT_EQ(watchers.View().topLevelItemCount(), 2);
    watchers.View().setCurrentItem(watchers.View().topLevelItem(0));
    for (const int answer : {pell::IDNO, pell::IDYES}) {
        const ScopedPresenter boxes(answer);
        Click(watchers, "deleteButton");
        EXPECT_EQ(Said(boxes), QStringList{XString(ids::ConfirmDeletion)});
    }
    EXPECT_EQ(watchers.PendingCommands(),
              (QStringList{"create,/app/notif/watchers,0",
                           "set,/app/notif/watchers/00/email,\"bob@mail.example.org\"",
                           "set,/app/notif/watchers/00/level,info"}));
    Click(sheet, "applyButton");
    EXPECT_EQ(watchers.View().topLevelItem(0)->text(0), QStringLiteral("0"));

    watchers.View().setCurrentItem(watchers.View().topLevelItem(0));
    WithDialog<CNotifications_WatcherDlg>(
        receiver, [&] { Click(watchers, "editButton"); },
        [](CNotifications_WatcherDlg& dialog) {
            dialog.findChild<QComboBox*>(QStringLiteral("levelBox"))->setCurrentIndex(1);
            Click(dialog, "okButton");
        });
    EXPECT_EQ(watchers.PendingCommands(), QStringList{"set,/app/notif/watchers/00/level,error"});
    Click(sheet, "applyButton");
    add(QStringLiteral("carl@example.net"), 2);
    Click(sheet, "applyButton");
    EXPECT_EQ(receiver.Value(QStringLiteral("app/notif/watchers/01/email")),
              QStringLiteral("\"carl@example.net\""));
}

// A watcher list the receiver refuses to print, or whose reply is not what a receiver sends, is
// greyed with the reason as its tip and nothing to edit: nothing of it is trusted.
TEST(NotificationsSheetTest, AWatcherListThatCannotBeReadIsNotEdited) {
    const struct {
        rxio::CommandResult reply;
        QString why;
    } cases[] = {
        {{rxio::CommandResult::Completed, true, QStringLiteral("{2,,busy}")},
         QStringLiteral("busy")},
        {{rxio::CommandResult::Completed, false,
          QStringLiteral("{300={email=\"a@b.cc\",level=warning}}")},
         QStringLiteral("Notifications_GetWatchers")},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reply.reply.toStdString());
        SimulatedReceiver simulated;
        auto receiver = std::make_shared<RewritingReceiver>(simulated.Receiver());
        receiver->replies = {
            {pell::vexcmd::PrintFields(QStringLiteral("/app/notif/watchers"), {"email", "level"}),
             c.reply}};
        const ScopedPresenter boxes;
        Sheet sheet(receiver, nullptr);
        sheet.show();
        auto& watchers = static_cast<CNotifications_WatchersPP&>(Page(sheet, 2));
        EXPECT_TRUE(boxes.Boxes().empty());
        EXPECT_FALSE(watchers.findChild<QPushButton*>(QStringLiteral("addButton"))->isEnabled());
        EXPECT_TRUE(watchers.View().toolTip().contains(c.why))
            << watchers.View().toolTip().toStdString();
        EXPECT_EQ(watchers.View().topLevelItemCount(), 0);
        EXPECT_TRUE(watchers.PendingCommands().isEmpty());
    }
}

} // namespace
