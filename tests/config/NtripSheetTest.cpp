#include "SheetTesting.h"
#include "SimulatedReceiver.h"
#include "config/NtripPS.h"
#include "config/Ntrip_Client_SelectMountpointDlg.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QLabel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
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

QString String(unsigned id) {
    return g_PellLibApp.XLoadString(id);
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
         {String(pell::ids::NtripClientPage), String(pell::ids::NtripServerNumbered).arg(1),
          String(pell::ids::NtripServerNumbered).arg(2), String(pell::ids::NtripCasterPage)},
         {"set,ntrip/mode,client", "set,ntrip/caster/port,2102", "set,ntrip/caster/passwd,\"X\"",
          "set,dev/ntrip/a/imode,cmr", "set,/app/ntrip/server/2/mode,on",
          "set,/app/ntrip/caster/auth,digest", "set,/app/ntrip/caster/1/port,2103"}},
        {"lumen7",
         {String(pell::ids::NtripClientPage), String(pell::ids::NtripServerPage)},
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

} // namespace
