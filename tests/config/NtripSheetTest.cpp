#include "SheetTesting.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "config/NtripPS.h"
#include "config/Ntrip_Caster_MountpointsDlg.h"
#include "config/Ntrip_Caster_UsersDlg.h"
#include "config/Ntrip_Client_SelectMountpointDlg.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <vector>

namespace {

using namespace pell::test;
using Sheet = CPellWindow<CNtripPS>;

bool Shows(const QWidget& page, const QString& text) {
    for (const QLabel* label : page.findChildren<QLabel*>())
        if (label->isVisibleTo(&page) && label->text() == text)
            return true;
    return false;
}

// Opens an item dialog from `list` with `button`, types `name` (none: leaves it) and presses OK;
// a refused name is given up.
template <class Dialog>
void EnterName(SimulatedReceiver& receiver, QWidget& list, const char* button, const char* name) {
    WithDialog<Dialog>(
        receiver, [&] { Click(list, button); },
        [&](Dialog& dialog) {
            if (name)
                dialog.template findChild<QLineEdit*>(QStringLiteral("nameEdit"))
                    ->setText(QString::fromLatin1(name));
            Click(dialog, "okButton");
            if (dialog.isVisible())
                dialog.reject();
        });
}

// The pages each receiver has; every control of every page, changed alone, sends exactly the
// one command of its kind.
TEST(NtripSheetTest, EachControlWritesOneCommandOfItsKind) {
    const struct {
        const char* profile;
        QStringList titles;
        std::vector<const char*> expected;
    } cases[] = {
        {"ostrel-q",
         {XString(pell::ids::NtripClientPage), XString(pell::ids::NtripServerNumbered).arg(1),
          XString(pell::ids::NtripServerNumbered).arg(2), XString(pell::ids::NtripCasterPage)},
         {"set,ntrip/mode,client", "set,ntrip/caster/port,2102", "set,ntrip/caster/passwd,\"X\"",
          "set,dev/ntrip/a/imode,cmr", "set,/app/ntrip/server/2/mode,on",
          "set,/app/ntrip/caster/auth,digest", "set,/app/ntrip/caster/1/port,2103"}},
        {"lumen7",
         {XString(pell::ids::NtripClientPage), XString(pell::ids::NtripServerPage)},
         {"set,ntrip/server/mountpt/descr,\"X\"", "set,ntrip/server/protocol,v2",
          "set,ntrip/server/proxy/port,1"}},
    };
    const QRegularExpression command(QStringLiteral(
        R"(^set,(ntrip|dev/ntrip/a|/app/ntrip)/[a-z0-9/]+,([0-9]+|/?[a-z0-9/]+|"[^"]*")$)"));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.profile);
        const ScopedPresenter boxes(pell::IDYES);
        SimulatedReceiver receiver(QString::fromLatin1(c.profile));
        Sheet sheet(receiver.Receiver(), nullptr);
        sheet.show();
        EXPECT_EQ(Titles(sheet), c.titles);
        const QStringList written = ApplyEachControl(receiver, sheet, command);
        for (const char* expected : c.expected)
            EXPECT_TRUE(written.contains(QLatin1String(expected))) << expected;
        // The caster's mode and listener ports take effect after a reset.
        const bool asked =
            std::any_of(boxes.Boxes().begin(), boxes.Boxes().end(), [](const auto& box) {
                return box.text == XString(pell::ids::SoftResetQuestion);
            });
        EXPECT_EQ(asked, c.titles.contains(XString(pell::ids::NtripCasterPage)));
    }
}

// A stream chosen from the caster's table becomes the mount point, with the input mode of its
// format; the advanced dialog's proxy shows on the page once written; the state follows.
TEST(NtripSheetTest, TheClientTakesItsStreamFromTheTableAndShowsWhereItConnects) {
    SimulatedReceiver receiver(QStringLiteral("lumen7"));
    CVexReceiverMate(receiver.Receiver())
        .Run(pell::vexcmd::SetChoice(QStringLiteral("ntrip/mode"), QStringLiteral("client")) +
             QLatin1Char(';') +
             pell::vexcmd::SetText(QStringLiteral("ntrip/caster/addr"),
                                   QStringLiteral("caster.example.net")));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    auto& client = static_cast<CNtrip_ClientPP&>(Page(sheet, 0));
    EXPECT_TRUE(Shows(client, ulm_std::CTranslatorInstance::Ref().XlateEx(
                                  rxio::vex::TableOf(rxio::vex::NtripState::ENtripState{})
                                      .Name(rxio::vex::NtripState::Sleep))));
    EXPECT_TRUE(Shows(client, QStringLiteral("no mount point")));

    WithDialog<CNtrip_Client_SelectMountpointDlg>(
        receiver, [&] { Click(client, "selectButton"); },
        [](CNtrip_Client_SelectMountpointDlg& dialog) {
            dialog.Filter().setText(QStringLiteral("DGPS"));
            ASSERT_EQ(dialog.List().rowCount(), 1);
            Click(dialog, "okButton");
        });
    EXPECT_EQ(client.PendingCommands(), (QStringList{"set,ntrip/caster/mountpt,\"DGPS_RTCM2\"",
                                                     "set,dev/ntrip/a/imode,rtcm"}));
    Click(sheet, "applyButton");
    EXPECT_EQ(receiver.Value(QStringLiteral("ntrip/state")), QStringLiteral("data"));

    WithDialog(
        receiver, [&] { Click(client, "advancedButton"); },
        [](CParameterDialog& dialog) {
            // The one text field: the others are number boxes.
            for (QLineEdit* proxy : dialog.Body().findChildren<QLineEdit*>())
                if (!qobject_cast<QAbstractSpinBox*>(proxy->parentWidget())) {
                    proxy->setText(QStringLiteral("proxy.example.net"));
                    emit proxy->textEdited(proxy->text());
                }
            Click(dialog, "okButton");
        });
    EXPECT_EQ(receiver.Value(QStringLiteral("ntrip/caster/proxy/addr")),
              QStringLiteral("\"proxy.example.net\""));
    EXPECT_TRUE(Shows(client, QStringLiteral("proxy.example.net : 0")));
}

// The caster's users: added, refused by the rules, deleted after the question, written on OK
// as the list's commands; a stored moment that is no real instant is reported.
TEST(NtripSheetTest, TheCastersUsersAreEditedAndWrittenOnOk) {
    SimulatedReceiver receiver(QStringLiteral("soren"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    CParameterPage& caster = Page(sheet, XString(pell::ids::NtripCasterPage));

    ScopedPresenter boxes(pell::IDYES);
    WithDialog<CNtrip_Caster_UsersDlg>(
        receiver, [&] { Click(caster, "usersButton"); },
        [&](CNtrip_Caster_UsersDlg& users) {
            for (const char* name : {"ann", "", "ann", "bob"})
                EnterName<CNtrip_Caster_UserDlg>(receiver, users, "addButton", name);
            ASSERT_EQ(users.List().topLevelItemCount(), 2);
            users.List().setCurrentItem(users.List().topLevelItem(1));
            Click(users, "deleteButton");
            EXPECT_EQ(users.Body().PendingCommands(),
                      (QStringList{"create,/app/ntrip/caster/usr,0",
                                   "set,/app/ntrip/caster/usr/00/name,\"ann\"",
                                   "set,/app/ntrip/caster/usr/00/passwd,\"\"",
                                   "set,/app/ntrip/caster/usr/00/grpnum,0",
                                   "set,/app/ntrip/caster/usr/00/startat,\"\"",
                                   "set,/app/ntrip/caster/usr/00/expireat,\"\""}));
            Click(users, "okButton");
        });
    QStringList said;
    for (const auto& box : boxes.Boxes())
        said << box.text;
    EXPECT_EQ(said, (QStringList{XString(pell::ids::NtripUserNameEmpty),
                                 XString(pell::ids::NtripUserNameTaken),
                                 XString(pell::ids::ConfirmDeletion)}));
    EXPECT_EQ(receiver.Value(QStringLiteral("app/ntrip/caster/usr/00/name")),
              QStringLiteral("\"ann\""));
    EXPECT_TRUE(caster.IsModified());

    QString invalid;
    EXPECT_FALSE(
        CNtrip_Caster_UsersDlg::ParseMoment(QStringLiteral("2026/02/30 10:00:00"), &invalid));
    EXPECT_EQ(invalid, QStringLiteral("Invalid date/time: 2026/02/30 10:00:00"));
    EXPECT_EQ(CNtrip_Caster_UsersDlg::ParseMoment(QStringLiteral("2026/11/23 17:05:00"), nullptr),
              QDateTime(QDate(2026, 11, 23), QTime(17, 5)));
    EXPECT_FALSE(CNtrip_Caster_UsersDlg::ParseMoment({}, &invalid));
}

// A listener's mount points: a stale description is brought in line with the messages served,
// names are refused by the rules, a full listener says so, and OK writes the slots' names and
// descriptions.
TEST(NtripSheetTest, TheMountpointsAreEditedAndWrittenOnOk) {
    SimulatedReceiver receiver(QStringLiteral("soren"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    CParameterPage& caster = Page(sheet, XString(pell::ids::NtripCasterPage));

    ScopedPresenter boxes(pell::IDYES);
    WithDialog<CNtrip_Caster_MountpointsDlg>(
        receiver, [&] { Click(caster, "mountpointsButton0"); },
        [&](CNtrip_Caster_MountpointsDlg& list) {
            ASSERT_EQ(list.List().topLevelItemCount(), 2);
            list.List().setCurrentItem(list.List().topLevelItem(1));
            EnterName<CNtrip_Caster_MountpointDlg>(receiver, list, "editButton", nullptr);
            for (const char* name : {"", "soren_msm4", "NEW_MP", "MP3"})
                EnterName<CNtrip_Caster_MountpointDlg>(receiver, list, "addButton", name);
            Click(list, "addButton");
            list.List().setCurrentItem(list.List().topLevelItem(0));
            Click(list, "deleteButton");
            EXPECT_EQ(
                list.Body().PendingCommands(),
                (QStringList{"set,/app/ntrip/caster/0/0/name,\"\"",
                             "set,/app/ntrip/caster/0/0/msgset,\"\"",
                             "set,/app/ntrip/caster/0/1/msgset,\"RTCM 3: 1004,1006,1012,1033\"",
                             "set,/app/ntrip/caster/0/2/name,\"NEW_MP\"",
                             "set,/app/ntrip/caster/0/3/name,\"MP3\""}));
            Click(list, "okButton");
        });
    QStringList said;
    for (const auto& box : boxes.Boxes())
        said << box.text;
    EXPECT_EQ(said, (QStringList{XString(pell::ids::NtripMessageSetUpdated),
                                 XString(pell::ids::NtripMountpointNameEmpty),
                                 XString(pell::ids::NtripMountpointNameTaken),
                                 XString(pell::ids::NtripMountpointsFull).arg(4),
                                 XString(pell::ids::ConfirmDeletion)}));
    EXPECT_EQ(receiver.Value(QStringLiteral("app/ntrip/caster/0/3/name")),
              QStringLiteral("\"MP3\""));
    EXPECT_TRUE(caster.IsModified());

    const struct {
        QStringList messages;
        const char* description;
    } descriptions[] = {
        {{}, ""},
        {{"jps/RT", "rtcm3/1074", "rtcm3/1004", "rtcm/3", "nmea/GGA", "xyz/A"},
         "RTCM 3: 1004,1074; RTCM 2: 3; JPS: RT; NMEA: GGA; XYZ: A"},
    };
    for (const auto& d : descriptions)
        EXPECT_EQ(CNtrip_Caster_MountpointDlg::Describe(d.messages), QLatin1String(d.description));
}

// What the receiver does not give is never taken for empty: messages it does not name keep the
// stored description, and a slot whose name it does not give is neither free nor editable.
TEST(NtripSheetTest, AMountpointTheReceiverDoesNotDescribeKeepsItsValues) {
    const rxio::CommandResult unknown{rxio::CommandResult::Completed, true,
                                      QStringLiteral("{1,,unknown path}")};
    const rxio::CommandResult odd{rxio::CommandResult::Completed, false,
                                  QStringLiteral("{rtcm3/1004,\"x;y\"}")};
    const QString messages = QStringLiteral("print,/app/ntrip/caster/0/1/msgs");
    const QString name = QStringLiteral("print,/app/ntrip/caster/0/2/name");
    const struct {
        std::map<QString, rxio::CommandResult> replies;
        int rows;
    } cases[] = {{{{messages, unknown}}, 2}, {{{messages, odd}}, 2}, {{{name, unknown}}, 3}};
    for (const auto& c : cases) {
        SimulatedReceiver simulated(QStringLiteral("soren"));
        auto receiver = std::make_shared<RewritingReceiver>(simulated.Receiver());
        receiver->replies = c.replies;
        Sheet sheet(receiver, nullptr);
        sheet.show();
        CParameterPage& caster = Page(sheet, XString(pell::ids::NtripCasterPage));
        const ScopedPresenter boxes(pell::IDYES);
        WithDialog<CNtrip_Caster_MountpointsDlg>(
            simulated, [&] { Click(caster, "mountpointsButton0"); },
            [&](CNtrip_Caster_MountpointsDlg& list) {
                ASSERT_EQ(list.List().topLevelItemCount(), c.rows);
                list.List().setCurrentItem(list.List().topLevelItem(1));
                EnterName<CNtrip_Caster_MountpointDlg>(simulated, list, "editButton", nullptr);
                if (c.rows == 3) {
                    EXPECT_FALSE(list.List().topLevelItem(2)->flags() & Qt::ItemIsEnabled);
                    EnterName<CNtrip_Caster_MountpointDlg>(simulated, list, "addButton", "NEW");
                    EXPECT_EQ(list.Body().PendingCommands().filter(QStringLiteral("/name,")),
                              QStringList{"set,/app/ntrip/caster/0/3/name,\"NEW\""});
                } else {
                    EXPECT_TRUE(list.Body().PendingCommands().isEmpty());
                }
                list.reject();
            });
        EXPECT_EQ(boxes.Boxes().size(), c.rows == 3 ? 1u : 0u); // the stale description of 0/1
    }
}

// A server's dialogs edit that server's parameters: each control alone writes one command.
TEST(NtripSheetTest, AServersDialogsWriteItsOwnParameters) {
    SimulatedReceiver receiver(QStringLiteral("ostrel-q"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    CParameterPage& server = Page(sheet, XString(pell::ids::NtripServerNumbered).arg(2));
    QStringList pending;
    for (const char* button : {"outputButton", "advancedButton"})
        WithDialog(
            receiver, [&] { Click(server, button); },
            [&](CParameterDialog& dialog) {
                for (QWidget* control : dialog.Body().findChildren<QWidget*>())
                    if (control->isVisible())
                        Change(control);
                pending << dialog.Body().PendingCommands();
                Click(dialog, "okButton");
            });
    EXPECT_EQ(pending, (QStringList{"set,/app/ntrip/server/2/out/mode,cmr",
                                    "set,/app/ntrip/server/2/out/period,2.000000",
                                    "set,/app/ntrip/server/2/out/elm,11",
                                    "set,/app/ntrip/server/2/protocol,auto",
                                    "set,/app/ntrip/server/2/proxy/addr,\"X\"",
                                    "set,/app/ntrip/server/2/proxy/port,1"}));
    EXPECT_EQ(receiver.Value(QStringLiteral("app/ntrip/server/2/out/elm")), QStringLiteral("11"));
}

} // namespace
