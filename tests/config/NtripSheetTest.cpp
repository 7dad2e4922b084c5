#include "SheetTesting.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "config/NtripPS.h"
#include "config/Ntrip_Caster_UsersDlg.h"
#include "config/Ntrip_Client_SelectMountpointDlg.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

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
        SimulatedReceiver receiver(QString::fromLatin1(c.profile));
        Sheet sheet(receiver.Receiver(), nullptr);
        sheet.show();
        EXPECT_EQ(Titles(sheet), c.titles);
        const QStringList written = ApplyEachControl(receiver, sheet, command);
        for (const char* expected : c.expected)
            EXPECT_TRUE(written.contains(QLatin1String(expected))) << expected;
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
    CParameterPage& caster =
        Page(sheet, int(Titles(sheet).indexOf(XString(pell::ids::NtripCasterPage))));
    const auto add = [&](CNtrip_Caster_UsersDlg& users, const char* name) {
        WithDialog<CNtrip_Caster_UserDlg>(
            receiver, [&] { Click(users, "addButton"); },
            [&](CNtrip_Caster_UserDlg& dialog) {
                dialog.findChild<QLineEdit*>(QStringLiteral("nameEdit"))
                    ->setText(QString::fromLatin1(name));
                Click(dialog, "okButton");
                if (dialog.isVisible()) // refused: the name stays to be mended
                    dialog.reject();
            });
    };
    ScopedPresenter boxes(pell::IDYES);
    WithDialog<CNtrip_Caster_UsersDlg>(
        receiver, [&] { Click(caster, "usersButton"); },
        [&](CNtrip_Caster_UsersDlg& users) {
            for (const char* name : {"ann", "", "ann", "bob"})
                add(users, name);
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
                                 XString(pell::ids::NtripConfirmDeletion)}));
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

} // namespace
