#include "SheetTesting.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "config/ReceiverPortsPS.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTreeWidget>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace {

using namespace pell::test;
using Sheet = CPellWindow<CReceiverPortsPS>;

template <class Page = CParameterPage>
Page& PageTitled(CReceiverPortsPS& sheet, const char* title) {
    const int index = int(Titles(sheet).indexOf(QLatin1String(title)));
    EXPECT_GE(index, 0) << title;
    sheet.SetActivePage(index);
    return *static_cast<Page*>(sheet.GetPage(index));
}

// Whether a control of the page shows `text` as its value.
bool Shows(QWidget& page, const QString& text) {
    for (QWidget* control : page.findChildren<QWidget*>()) {
        if (auto* box = qobject_cast<QComboBox*>(control); box && box->currentText() == text)
            return true;
        if (auto* label = qobject_cast<QLabel*>(control); label && label->text() == text)
            return true;
        if (auto* spin = qobject_cast<QSpinBox*>(control); spin && spin->text() == text)
            return true;
    }
    return false;
}

TEST(PortsSheetTest, PagesFollowThePortsTheReceiverHas) {
    const QStringList serial{"Serial A", "Serial B", "Serial C", "Serial D",
                             "General",  "USB",      "TCP",      "TCP Server"};
    const struct {
        const char* profile;
        QStringList titles;
        QStringList silent;                                     // ports that take no output
        std::vector<std::pair<const char*, const char*>> shown; // page, a value read on it
    } cases[] = {
        {"lumen7",
         serial + QStringList{"UDP", "UDP Port", "Ntrip"},
         {"dev/ntrip/a"},
         {{"Serial D", "115200 baud"},
          {"Serial A", "Commands"},
          {"TCP Server", "8002"},
          {"UDP Port", "8005"},
          {"Ntrip", "RTCM 3.x"}}},
        {"ostrel-w",
         serial + QStringList{"UDP", "UDP Port", "Bluetooth", "Ntrip"},
         {"dev/ble/a", "dev/ntrip/a"},
         {{"Bluetooth", "/dev/ble/a (no output)"}}},
        {"marten",
         serial +
             QStringList{"UDP", "UDP Port", "Bluetooth", "Ntrip", "Modem", "Modem A", "Drivers A"},
         {"dev/ntrip/a"},
         {{"Modem A", "UMTS module rev 3"}, {"Modem A", "Serial B"}, {"General", "5"}}},
    };
    const pell::test::ScopedEnglish english;
    for (const auto& c : cases) {
        pell::test::SimulatedReceiver receiver(QString::fromLatin1(c.profile));
        Sheet sheet(receiver.Receiver(), nullptr);
        EXPECT_EQ(Titles(sheet), c.titles) << c.profile;
        QStringList silent;
        for (const ReceiverPort& port : sheet.Ports())
            if (!port.takesOutput)
                silent << port.path;
        EXPECT_EQ(silent, c.silent) << c.profile;
        sheet.show();
        for (const auto& [title, value] : c.shown)
            EXPECT_TRUE(Shows(PageTitled(sheet, title), QString::fromUtf8(value)))
                << c.profile << ": " << title << " " << value;
        ASSERT_NE(sheet.Controller(), nullptr);
        EXPECT_EQ(sheet.Controller()->path, QStringLiteral("dev/ser/a"));
    }
}

// Every control of every page, changed alone, sends exactly the one command of its kind; a change
// that could cut the controller's own connection asks first. A port that takes no output has its
// input mode written as any other, and nothing of its output.
TEST(PortsSheetTest, EachControlWritesOneCommandOfItsKind) {
    const pell::test::ScopedEnglish english;
    pell::test::ScopedPresenter boxes(pell::IDYES);
    pell::test::SimulatedReceiver receiver(QStringLiteral("ostrel-q"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    const QRegularExpression command(QStringLiteral(
        R"(^set,(dev/[a-z]+/[a-z]/[a-z/]+|out/dev/[a-z]+/[a-z]/(elm|period)|net/(tcp|udp)(/[a-e])?/[a-z]+),(-?\d+(\.\d+)?|[A-Za-z0-9]+|/dev/ser/[a-d]|".*")$)"));
    int changed = 0;
    QStringList written;
    for (int index = 0; index < sheet.GetPageCount(); ++index) {
        sheet.SetActivePage(index);
        auto& page = *static_cast<CParameterPage*>(sheet.GetPage(index));
        EXPECT_TRUE(page.PendingCommands().isEmpty()) << page.GetTitle().toStdString();
        for (QWidget* control : page.findChildren<QWidget*>()) {
            if (!control->isVisible() || !control->isEnabled() || !Change(control))
                continue;
            const QStringList pending = page.PendingCommands();
            ASSERT_EQ(pending.size(), 1) << page.GetTitle().toStdString();
            EXPECT_TRUE(command.match(pending[0]).hasMatch()) << pending[0].toStdString();
            const qsizetype before = receiver.Simulator().ReceivedCount();
            const std::size_t asked = boxes.Boxes().size();
            Click(sheet, "applyButton");
            EXPECT_EQ(WritesSince(receiver, before), pending);
            written << pending;
            const bool ownLink =
                QRegularExpression(
                    QStringLiteral("^set,dev/ser/a/(rate|bits|stops|parity|rtscts|imode),"))
                    .match(pending[0])
                    .hasMatch();
            EXPECT_EQ(boxes.Boxes().size(), asked + (ownLink ? 1 : 0)) << pending[0].toStdString();
            ++changed;
        }
    }
    EXPECT_GE(changed, 40);
    for (const ReceiverPort& port : sheet.Ports()) {
        if (port.takesOutput)
            continue;
        const QStringList own = written.filter(port.path + QLatin1Char('/'));
        ASSERT_FALSE(own.isEmpty()) << port.path.toStdString();
        for (const QString& write : own)
            EXPECT_TRUE(write.startsWith(QStringLiteral("set,%1/imode,").arg(port.path)))
                << write.toStdString();
    }
    ASSERT_FALSE(boxes.Boxes().empty());
    EXPECT_TRUE(boxes.Boxes().front().text.contains(QStringLiteral("/dev/ser/a")));
}

TEST(PortsSheetTest, RefusalsWarningsAndPrompts) {
    const pell::test::ScopedEnglish english;
    pell::test::SimulatedReceiver receiver(QStringLiteral("ostrel-q"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();

    // A value the receiver refuses, or a text no command can carry, stays marked with why.
    auto* udp = PageTitled(sheet, "UDP Port").findChild<QSpinBox*>();
    udp->setMaximum(70000);
    auto* profile = PageTitled(sheet, "Modem A").findChild<QLineEdit*>();
    const auto type = [profile](const QString& text) {
        profile->setText(text);
        emit profile->textEdited(text);
    };
    const struct {
        std::function<void()> enter, mend;
        QWidget* control;
        const char* path;
        QString stored;
    } refusals[] = {
        {[udp] { udp->setValue(70000); }, [udp] { udp->setValue(9000); }, udp, "net/udp/port",
         QStringLiteral("9000")},
        {[&type] { type(QStringLiteral("gprs\x01")); }, [&type] { type(QStringLiteral("gprs")); },
         profile, "dev/modem/a/profile", QStringLiteral("\"gprs\"")},
    };
    for (const auto& r : refusals) {
        pell::test::ScopedPresenter boxes;
        r.enter();
        Click(sheet, "applyButton");
        EXPECT_TRUE(r.control->property("refused").toBool()) << r.path;
        EXPECT_FALSE(r.control->toolTip().isEmpty()) << r.path;
        EXPECT_EQ(boxes.Boxes().size(), 1u) << r.path;
        r.mend();
        Click(sheet, "applyButton");
        EXPECT_EQ(receiver.Value(QString::fromLatin1(r.path)), r.stored);
    }
    EXPECT_EQ(udp->toolTip(), QString());

    // The message period must fit raw/msint or pos/msint (100 ms here): a warning the user may
    // override. Messages go out with em/dm while the output mode is user defined.
    auto& serial = PageTitled(sheet, "Serial B");
    auto* period = serial.findChild<QDoubleSpinBox*>();
    auto* messages = serial.findChild<QListWidget*>();
    const struct {
        double seconds;
        int answer;
        std::size_t boxes;
        const char* stored;
    } periods[] = {
        {0.25, pell::IDCANCEL, 1, "1.00"}, {0.25, pell::IDOK, 1, "0.25"}, {2, 0, 0, "2.00"}};
    for (const auto& p : periods) {
        pell::test::ScopedPresenter boxes(p.answer);
        period->setValue(p.seconds);
        Click(sheet, "applyButton");
        ASSERT_EQ(boxes.Boxes().size(), p.boxes) << p.seconds;
        if (p.boxes) {
            EXPECT_EQ(boxes.Boxes()[0].text,
                      g_PellLibApp.XLoadString(pell::ids::PortsPeriodMismatch));
        }
        EXPECT_EQ(receiver.Value(QStringLiteral("out/dev/ser/b/period")).toDouble(),
                  QString::fromLatin1(p.stored).toDouble());
    }
    EXPECT_FALSE(messages->isEnabled());
    for (QComboBox* box : serial.findChildren<QComboBox*>())
        if (const int user = box->findData(QStringLiteral("user")); user >= 0)
            box->setCurrentIndex(user);
    ASSERT_TRUE(messages->isEnabled());
    messages->item(1)->setCheckState(Qt::Checked);
    Click(sheet, "applyButton");
    EXPECT_EQ(receiver.Value(QStringLiteral("dev/ser/b/msgs")), QStringLiteral("{nmea/RMC}"));
    messages->item(1)->setCheckState(Qt::Unchecked);
    const qsizetype before = receiver.Simulator().ReceivedCount();
    Click(sheet, "applyButton");
    EXPECT_EQ(WritesSince(receiver, before), QStringList{"dm,/dev/ser/b,nmea/RMC"});

    // A page read before shows what another page has applied since.
    EXPECT_FALSE(Shows(PageTitled(sheet, "General"), QStringLiteral("JPS")));
    auto* usbInput = PageTitled(sheet, "USB").findChild<QComboBox*>();
    usbInput->setCurrentIndex(usbInput->findData(QStringLiteral("jps")));
    Click(sheet, "applyButton");
    EXPECT_TRUE(Shows(PageTitled(sheet, "General"), QStringLiteral("JPS")));

    // Deleting a driver asks first; No leaves it.
    auto& drivers = PageTitled<CReceiverPortComDriverPP>(sheet, "Drivers A");
    auto* driverSlots = drivers.findChild<QTreeWidget*>();
    ASSERT_EQ(driverSlots->topLevelItemCount(), 4);
    EXPECT_EQ(driverSlots->topLevelItem(0)->text(1), QStringLiteral("lte-cat4-std"));
    driverSlots->setCurrentItem(driverSlots->topLevelItem(0));
    for (const int answer : {pell::IDNO, pell::IDYES}) {
        pell::test::ScopedPresenter boxes(answer);
        EXPECT_EQ(drivers.DeleteSelected(), answer == pell::IDYES);
        ASSERT_EQ(boxes.Boxes().size(), 1u);
        EXPECT_EQ(boxes.Boxes()[0].text,
                  g_PellLibApp.XLoadString(pell::ids::PortsConfirmDriverDeletion));
        EXPECT_EQ(receiver.Value(QStringLiteral("dev/modem/a/jps/0/mode")),
                  answer == pell::IDYES ? QStringLiteral("empty") : QStringLiteral("active"));
    }
    EXPECT_EQ(receiver.Value(QStringLiteral("dev/modem/a/jps/1/mode")), QStringLiteral("present"));
    EXPECT_FALSE(drivers.DeleteSelected()); // the slot is empty now

    // Cancel after an Apply that stopped at a refusal takes back the message sets it enabled, and
    // leaves what is not a port's, such as a timing input another window changed meanwhile.
    PageTitled(sheet, "Serial B");
    messages->item(2)->setCheckState(Qt::Checked);
    PageTitled(sheet, "UDP Port");
    udp->setValue(70000);
    {
        const pell::test::ScopedPresenter boxes;
        Click(sheet, "applyButton");
        EXPECT_EQ(receiver.Value(QStringLiteral("dev/ser/b/msgs")), QStringLiteral("{nmea/GSA}"));
        rxsim::SideEffects effects;
        receiver.Simulator().State().Execute(QStringLiteral("set,dev/event/a/in,on"), effects);
        Click(sheet, "cancelButton");
    }
    EXPECT_EQ(receiver.Value(QStringLiteral("dev/ser/b/msgs")), QStringLiteral("{}"));
    EXPECT_EQ(receiver.Value(QStringLiteral("dev/event/a/in")), QStringLiteral("on"));
}

// Names that could not stand in a command are left out; a failed read of a port's message sets
// leaves them uneditable until a read succeeds.
TEST(PortsSheetTest, OddRepliesAreKeptOutOfCommands) {
    const pell::test::ScopedEnglish english;
    pell::test::SimulatedReceiver simulated(QStringLiteral("ostrel-q"));
    auto receiver = std::make_shared<RewritingReceiver>(simulated.Receiver());
    const auto answer = [](const char* reply, bool error = false) {
        return rxio::CommandResult{rxio::CommandResult::Completed, error,
                                   QString::fromLatin1(reply)};
    };
    receiver->replies = {
        {QStringLiteral("list,dev/modem/a/jps"), answer("{0,bad slot,x;y,1}")},
        {QStringLiteral("print,dev/ser/b/msgs"), answer("{2,,busy}", true)},
        {QStringLiteral("print,dev/ser/c/msgs"), answer("{nmea/GGA,bad set,x;y}")},
    };
    const pell::test::ScopedPresenter boxes;
    Sheet sheet(receiver, nullptr);
    sheet.show();

    auto* driverSlots = PageTitled(sheet, "Drivers A").findChild<QTreeWidget*>();
    ASSERT_EQ(driverSlots->topLevelItemCount(), 2);
    EXPECT_EQ(driverSlots->topLevelItem(1)->text(0), QStringLiteral("1"));

    const auto userDefined = [](CParameterPage& page) {
        for (QComboBox* box : page.findChildren<QComboBox*>())
            if (const int user = box->findData(QStringLiteral("user")); user >= 0)
                box->setCurrentIndex(user);
        return page.findChild<QListWidget*>();
    };
    QListWidget* sets = userDefined(PageTitled(sheet, "Serial C"));
    ASSERT_TRUE(sets->isEnabled());
    EXPECT_TRUE(sets->findItems(QStringLiteral("bad set"), Qt::MatchExactly).isEmpty());
    EXPECT_EQ(sets->findItems(QStringLiteral("nmea/GGA"), Qt::MatchExactly)[0]->checkState(),
              Qt::Checked);

    auto& serialB = PageTitled(sheet, "Serial B");
    QListWidget* unread = userDefined(serialB);
    EXPECT_FALSE(unread->isEnabled());
    EXPECT_EQ(unread->toolTip(), QStringLiteral("{2,,busy}"));
    receiver->replies.clear();
    serialB.Refresh();
    EXPECT_TRUE(userDefined(serialB)->isEnabled());
    EXPECT_EQ(unread->toolTip(), QString());
    EXPECT_TRUE(boxes.Boxes().empty());
}

TEST(PortsSheetTest, PeriodFitsEitherUpdateRate) {
    const struct {
        double seconds;
        int raw, pos;
        bool fits;
    } cases[] = {{1, 200, 1000, true},  {0.4, 200, 1000, true}, {0.3, 200, 1000, false},
                 {0, 200, 1000, true},  {0.05, 0, 0, true},     {1.5, 1000, 500, true},
                 {0.001, 10, 10, false}};
    for (const auto& c : cases)
        EXPECT_EQ(CReceiverPortGeneralPP::PeriodFits(c.seconds, c.raw, c.pos), c.fits) << c.seconds;
}

} // namespace
