#include "SheetTesting.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "config/PPSEventFrqPS.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

using namespace pell::test;
using Sheet = CPellWindow<CPPSEventFrqPS>;

QString Title(unsigned id, const char* channel = nullptr) {
    const QString name = g_PellLibApp.XLoadString(id);
    return channel ? g_PellLibApp.XLoadString(pell::ids::TimingPageTitle)
                         .arg(name, QString::fromLatin1(channel))
                   : name;
}

TEST(TimingSheetTest, PagesAreTheChannelsTheReceiverHas) {
    const struct {
        const char* profile;
        QStringList titles;
    } cases[] = {
        {"lumen7", {Title(pell::ids::PpsPage, "a")}},
        {"ostrel-q", {Title(pell::ids::PpsPage, "a"), Title(pell::ids::EventPage, "a")}},
        {"soren",
         {Title(pell::ids::PpsPage, "a"), Title(pell::ids::PpsPage, "b"),
          Title(pell::ids::EventPage, "a"), Title(pell::ids::FrequencyPage)}},
        {"pardo7",
         {Title(pell::ids::PpsPage, "a"), Title(pell::ids::PpsPage, "b"),
          Title(pell::ids::EventPage, "a"), Title(pell::ids::EventPage, "b"),
          Title(pell::ids::FrequencyPage)}},
    };
    for (const auto& c : cases) {
        pell::test::SimulatedReceiver receiver(QString::fromLatin1(c.profile));
        Sheet sheet(receiver.Receiver(), nullptr);
        EXPECT_EQ(Titles(sheet), c.titles) << c.profile;
    }
    EXPECT_EQ(CPPSEventFrqPS::ChannelPath("dev/pps/%c/offs/ns", 'b'),
              QStringLiteral("dev/pps/b/offs/ns"));
}

// Every control of every page, changed alone, sends exactly the one command of its kind.
TEST(TimingSheetTest, EachControlWritesOneCommandOfItsKind) {
    pell::test::SimulatedReceiver receiver(QStringLiteral("pardo7"));
    CVexReceiverMate(receiver.Receiver())
        .Run(pell::vexcmd::SetSigned(QStringLiteral("dev/pps/b/per/ms"), 500));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    const QRegularExpression command(
        QStringLiteral(R"(^set,(dev/(pps|event)/[ab]|frq|osc)/[a-z/]+,(-?\d+|[a-z]+)$)"));
    EXPECT_GE(ApplyEachControl(receiver, sheet, command).size(), 25);
    Sheet again(receiver.Receiver(), nullptr);
    again.show();
    EXPECT_EQ(static_cast<QSpinBox*>(Page(again, 1).findChildren<QSpinBox*>().front())->value(),
              501); // PPS b's period, read back after its change
}

TEST(TimingSheetTest, ARefusedValueStaysMarkedAndCancelKeepsOnlyWhatApplyCompleted) {
    pell::test::ScopedPresenter boxes;
    pell::test::SimulatedReceiver receiver(QStringLiteral("lumen7"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    CParameterPage& page = Page(sheet, 0);
    auto* enable = page.findChildren<QCheckBox*>().front();
    const QList<QSpinBox*> spins = page.findChildren<QSpinBox*>();
    QSpinBox* period = spins[0];
    QSpinBox* offsetNs = spins[2];

    enable->setChecked(true);
    Click(sheet, "applyButton");
    EXPECT_EQ(receiver.Value(QStringLiteral("dev/pps/a/out")), QStringLiteral("on"));

    // The period goes through, the offset is refused: the page stays with the offset marked.
    period->setValue(250);
    offsetNs->setMaximum(5000000);
    offsetNs->setValue(2000000);
    Click(sheet, "applyButton");
    EXPECT_EQ(receiver.Value(QStringLiteral("dev/pps/a/per/ms")), QStringLiteral("250"));
    ASSERT_FALSE(boxes.Boxes().empty());
    EXPECT_TRUE(boxes.Boxes().back().text.contains(QStringLiteral("{2,,value out of range}")));
    EXPECT_TRUE(offsetNs->property("refused").toBool());
    EXPECT_EQ(offsetNs->toolTip(), QStringLiteral("{2,,value out of range}"));
    EXPECT_TRUE(sheet.isVisible());

    Click(sheet, "cancelButton");
    EXPECT_EQ(sheet.result(), pell::IDCANCEL);
    EXPECT_EQ(receiver.Value(QStringLiteral("dev/pps/a/out")), QStringLiteral("on"));
    EXPECT_EQ(receiver.Value(QStringLiteral("dev/pps/a/per/ms")), QStringLiteral("1000"));
}

// What the controls cannot show exactly is left as the receiver has it; a box that switches a
// field writes through it; a receiver gone before the sheet opens ends it with a report.
TEST(TimingSheetTest, WritesOnlyWhatTheUserChanged) {
    pell::test::ScopedPresenter boxes;
    pell::test::SimulatedReceiver receiver(QStringLiteral("lumen7"));
    CVexReceiverMate(receiver.Receiver())
        .Run(QStringLiteral("set,dev/pps/a/mper,2000;set,dev/pps/a/offs/ms,400"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    CParameterPage& page = Page(sheet, 0);
    auto* marked = page.findChildren<QCheckBox*>()[1];
    QSpinBox* offsetMs = page.findChildren<QSpinBox*>()[1];
    ASSERT_TRUE(marked->isChecked());
    marked->setChecked(false);
    EXPECT_EQ(page.PendingCommands(), QStringList{"set,dev/pps/a/mper,0"});

    offsetMs->setRange(-300, 300);
    page.Refresh();
    EXPECT_FALSE(offsetMs->isEnabled());
    EXPECT_EQ(offsetMs->toolTip(), QStringLiteral("400"));
    EXPECT_TRUE(page.PendingCommands().isEmpty());
    Click(sheet, "okButton");
    EXPECT_EQ(receiver.Value(QStringLiteral("dev/pps/a/offs/ms")), QStringLiteral("400"));

    receiver.Receiver()->Disconnect();
    EXPECT_EQ(run_PPSEventFrqPS(receiver.Receiver(), nullptr), pell::IDCANCEL);
    EXPECT_FALSE(boxes.Boxes().empty());
}

} // namespace
