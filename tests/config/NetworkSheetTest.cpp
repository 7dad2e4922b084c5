#include "SheetTesting.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "config/IPv4Dlg.h"
#include "config/NetworkPS.h"
#include "config/UserCredentialsDlg.h"
#include "lib/Common.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

using namespace pell::test;
using Sheet = CPellWindow<CNetworkPS>;

const QString kResetQuestion =
    QStringLiteral("The changes will take effect after the receiver is soft reset. Proceed?");

bool IsAddressField(const QWidget* control) {
    const auto* edit = qobject_cast<const QLineEdit*>(control);
    return edit && edit->validator();
}

// The text of the message boxes shown since `before`.
QStringList BoxesSince(const ScopedPresenter& boxes, std::size_t before) {
    QStringList texts;
    for (std::size_t i = before; i < boxes.Boxes().size(); ++i)
        texts << boxes.Boxes()[i].text;
    return texts;
}

TEST(NetworkSheetTest, AddressesAreFourPlainNumbersAndMasksOnesThenZeros) {
    const ScopedEnglish english;
    const struct {
        const char* text;
        bool address, mask;
    } cases[] = {
        {"192.168.4.1", true, false},    {"0.0.0.0", true, true},
        {"255.255.255.255", true, true}, {"255.255.248.0", true, true},
        {"255.0.255.0", true, false},    {"256.1.1.1", false, false},
        {"010.0.0.1", false, false},     {"1.2.3", false, false},
        {"1.2.3.4.5", false, false},     {"1.2.3.4\n", false, false},
        {" 1.2.3.4", false, false},      {"", false, false},
    };
    for (const auto& c : cases) {
        const QString text = QString::fromLatin1(c.text);
        EXPECT_EQ(IPv4Refusal(EIPv4Field::Gateway, text),
                  c.address ? QString() : QStringLiteral("Invalid Gateway value."))
            << c.text;
        EXPECT_EQ(IPv4Refusal(EIPv4Field::Mask, text).isEmpty(), c.mask) << c.text;
    }
}

TEST(NetworkSheetTest, PagesFollowTheServicesTheReceiverHas) {
    const ScopedEnglish english;
    const struct {
        const char* profile;
        QStringList titles;
    } cases[] = {
        {"pardo7", {"Ethernet", "Wireless LAN", "FTP", "HTTP", "TCP Server", "TCP Client"}},
        {"ostrel-q",
         {"Wireless LAN", "Cellular", "PPP", "FTP", "HTTP", "TCP Server", "TCP Client"}},
        {"marten", {"Cellular", "PPP", "TCP Server"}},
        {"lumen7", {"TCP Server"}},
    };
    for (const auto& c : cases) {
        SimulatedReceiver receiver(QString::fromLatin1(c.profile));
        const Sheet sheet(receiver.Receiver(), nullptr);
        EXPECT_EQ(Titles(sheet), c.titles) << c.profile;
        EXPECT_EQ(run_NetworkPS_PageCount(receiver.Receiver(), nullptr), c.titles.size());
        // Every receiver has "net/tcp/port"; those with "net/tcp/a/port" get only the new page.
        const bool ports = receiver.Value(QStringLiteral("net/tcp/a/port")).size() > 0;
        EXPECT_EQ(sheet.findChildren<CNetworkTCPNewPP*>().size(), ports ? 1 : 0) << c.profile;
        EXPECT_EQ(sheet.findChildren<CNetworkTCPOldPP*>().size(), ports ? 0 : 1) << c.profile;
    }

    LinkedSimulator bare(LinkedSimulator::InProcess);
    const ScopedPresenter boxes;
    EXPECT_EQ(run_NetworkPS_PageCount(bare.connection, nullptr), 0);
    EXPECT_EQ(run_NetworkPS(bare.connection, nullptr), pell::IDCANCEL);
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Boxes()[0].text,
              QStringLiteral("The functionality is not supported by the connected hardware."));
    EXPECT_EQ(boxes.Boxes()[0].style & pell::MB_ICONMASK, pell::MB_ICONERROR);
}

// Every control of every page, changed alone, sends exactly the one command of its kind, after
// asking when the receiver needs a reset for it. An address field refuses a malformed address
// first and writes nothing.
TEST(NetworkSheetTest, EachControlWritesOneCommandOfItsKind) {
    const ScopedEnglish english;
    const QRegularExpression command(
        QStringLiteral(R"(^set,(net|wlan|ppp)/[a-z/]+,([0-9]+|[a-z]+|"[^"]*")$)"));
    const QRegularExpression needsReset(QStringLiteral(
        R"(^set,(net/ip/[a-z]+|wlan/mode|wlan/ap/[a-z]+|net/(ftp|http)/s?port|net/tcp/port),)"));
    QStringList written;
    QStringList refusals;
    for (const char* profile : {"pardo7", "marten"}) {
        const ScopedPresenter boxes(pell::IDYES);
        SimulatedReceiver receiver(QString::fromLatin1(profile));
        Sheet sheet(receiver.Receiver(), nullptr);
        sheet.show();
        for (int index = 0; index < sheet.GetPageCount(); ++index) {
            CParameterPage& page = Page(sheet, index);
            if (qobject_cast<CNetworkCellPP*>(&page))
                continue; // read only: its view is the user's, not the receiver's
            for (QWidget* control : page.findChildren<QWidget*>()) {
                if (!control->isVisible() || !control->isEnabled() || !Change(control))
                    continue;
                qint64 before = receiver.Simulator().ReceivedCount();
                std::size_t asked = boxes.Boxes().size();
                if (IsAddressField(control)) {
                    Click(sheet, "applyButton");
                    EXPECT_TRUE(WritesSince(receiver, before).isEmpty());
                    refusals << BoxesSince(boxes, asked);
                    auto* edit = static_cast<QLineEdit*>(control);
                    edit->setText(edit->text().contains(QLatin1String("255"))
                                      ? QStringLiteral("255.255.0.0")
                                      : QStringLiteral("10.0.0.7"));
                    before = receiver.Simulator().ReceivedCount();
                    asked = boxes.Boxes().size();
                }
                const QStringList pending = page.PendingCommands();
                ASSERT_EQ(pending.size(), 1) << page.GetTitle().toStdString();
                EXPECT_TRUE(command.match(pending[0]).hasMatch()) << pending[0].toStdString();
                Click(sheet, "applyButton");
                EXPECT_EQ(WritesSince(receiver, before), pending);
                EXPECT_EQ(BoxesSince(boxes, asked), needsReset.match(pending[0]).hasMatch()
                                                        ? QStringList{kResetQuestion}
                                                        : QStringList{})
                    << pending[0].toStdString();
                written << pending;
            }
        }
    }
    EXPECT_EQ(refusals, (QStringList{"Invalid IP Address value.", "Invalid IP Mask value.",
                                     "Invalid Gateway value.", "Invalid DNS value."}));
    for (const char* expected :
         {"set,net/ip/dhcp,off", "set,net/ip/mask,\"255.255.0.0\"", "set,wlan/mode,client",
          "set,wlan/client/passwd,\"X\"", "set,ppp/mode,csd", "set,net/ftp/port,22",
          "set,net/http/sport,444", "set,net/passwd,\"X\"", "set,net/tcp/port,8003",
          "set,net/tcpc/enable,on"})
        EXPECT_TRUE(written.contains(QLatin1String(expected))) << expected;
}

// No keeps the sheet open with nothing written. Yes writes; the receiver is reset when the sheet
// closes with those values kept, after an OK or after an Apply then Cancel, and not when Cancel
// put them back.
TEST(NetworkSheetTest, ChangesNeedingAResetAreWrittenOnlyOnYesAndResetOnClosing) {
    const ScopedEnglish english;
    const struct {
        int answer;
        const char* button;
        bool written;
        bool reset;
    } cases[] = {
        {pell::IDNO, "okButton", false, false},
        {pell::IDYES, "okButton", true, true},
        {pell::IDYES, "applyButton", true, true},
    };
    for (const auto& c : cases) {
        const ScopedPresenter boxes(c.answer);
        SimulatedReceiver receiver(QStringLiteral("pardo7"));
        Sheet sheet(receiver.Receiver(), nullptr);
        sheet.show();
        CParameterPage& ftp = Page(sheet, 2);
        ftp.findChild<QSpinBox*>()->setValue(2121);
        const qint64 before = receiver.Simulator().ReceivedCount();
        Click(sheet, c.button);
        EXPECT_EQ(BoxesSince(boxes, 0), QStringList{kResetQuestion});
        EXPECT_EQ(boxes.Boxes()[0].style & pell::MB_ICONMASK, pell::MB_ICONQUESTION);
        EXPECT_EQ(sheet.isVisible(), !c.written || c.button == std::string("applyButton"));
        if (sheet.isVisible())
            Click(sheet, "cancelButton");
        else
            EXPECT_EQ(sheet.result(), pell::IDOK); // the reset it asked for does not cancel it
        QStringList expected;
        if (c.written)
            expected << "set,net/ftp/port,2121";
        if (c.reset)
            expected << "reset,yes";
        EXPECT_EQ(WritesSince(receiver, before), expected) << c.answer << c.button;
    }
}

// The access point's address dialog refuses a mask that is not ones then zeros and stays open;
// the web interface's accounts take only their passwords.
TEST(NetworkSheetTest, DialogsCheckAndWriteTheirValues) {
    const ScopedEnglish english;
    const ScopedPresenter boxes(pell::IDYES);
    SimulatedReceiver receiver(QStringLiteral("pardo7"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    auto& wlan = static_cast<CNetworkWlanPP&>(Page(sheet, 1));
    WithDialog<CIPv4Dlg>(
        receiver, [&] { wlan.EditAccessPointAddress(); },
        [&](CIPv4Dlg& dialog) {
            QList<QLineEdit*> fields = dialog.Body().findChildren<QLineEdit*>();
            ASSERT_EQ(fields.size(), 2);
            fields[1]->setText(QStringLiteral("255.0.255.0"));
            emit fields[1]->textEdited(fields[1]->text());
            Click(dialog, "okButton");
            EXPECT_TRUE(dialog.isVisible());
            fields[1]->setText(QStringLiteral("255.255.0.0"));
            emit fields[1]->textEdited(fields[1]->text());
            Click(dialog, "okButton");
        });
    EXPECT_EQ(BoxesSince(boxes, 0), (QStringList{"Invalid IP Mask value.", kResetQuestion}));
    EXPECT_EQ(receiver.Value(QStringLiteral("wlan/ap/mask")), QStringLiteral("\"255.255.0.0\""));
    bool shown = false;
    for (const QLabel* label : wlan.findChildren<QLabel*>())
        shown = shown || label->text() == QLatin1String("255.255.0.0");
    EXPECT_TRUE(shown);

    auto& http = static_cast<CNetworkHTTPPP&>(Page(sheet, 3));
    const qint64 before = receiver.Simulator().ReceivedCount();
    WithDialog<CUserCredentialsDlg>(
        receiver, [&] { http.EditWebPassword(QStringLiteral("user")); },
        [](CUserCredentialsDlg& dialog) {
            EXPECT_EQ(dialog.Login(), QStringLiteral("user"));
            auto* password = dialog.Body().findChild<QLineEdit*>();
            password->setText(QStringLiteral("k3y"));
            emit password->textEdited(password->text());
            Click(dialog, "okButton");
        });
    EXPECT_EQ(WritesSince(receiver, before), QStringList{"set,net/http/userpasswd,\"k3y\""});
}

// The cellular page lists the modem and its profile, hides a password, and opens in the view the
// user left it in.
TEST(NetworkSheetTest, TheCellularPageRemembersItsView) {
    SimulatedReceiver receiver(QStringLiteral("marten"));
    for (const CNetworkCellPP::EViewMode mode :
         {CNetworkCellPP::Modems, CNetworkCellPP::ModemsAndProfile}) {
        {
            Sheet sheet(receiver.Receiver(), nullptr);
            sheet.show();
            auto& cell = static_cast<CNetworkCellPP&>(Page(sheet, 0));
            ASSERT_EQ(cell.ModemList().topLevelItemCount(), 1);
            EXPECT_EQ(cell.ModemList().topLevelItem(0)->text(1),
                      QStringLiteral("UMTS module rev 3"));
            auto* view = cell.findChild<QComboBox*>();
            view->setCurrentIndex(view->findData(mode));
        }
        Sheet sheet(receiver.Receiver(), nullptr);
        sheet.show();
        auto& cell = static_cast<CNetworkCellPP&>(Page(sheet, 0));
        EXPECT_EQ(cell.ProfileList().isVisible(), mode == CNetworkCellPP::ModemsAndProfile);
    }
}

} // namespace
