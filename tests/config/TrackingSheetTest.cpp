#include "SheetTesting.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "config/TrackingPositioningPS.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <map>

namespace {

using namespace pell::test;
using Sheet = CPellWindow<CTrackingPositioningPS>;

// Changes the first control of the dialog that can change; the command it would write.
QString ChangeOne(CParameterDialog& dialog) {
    for (QWidget* control : dialog.Body().findChildren<QWidget*>())
        if (control->isEnabled() && Change(control))
            return dialog.Body().PendingCommands().value(0);
    return {};
}

TEST(TrackingSheetTest, PagesAreThePartsTheReceiverHas) {
    const QStringList common = {
        XString(pell::ids::TrackingGeneralPage),  XString(pell::ids::TrackingObsPage),
        XString(pell::ids::TrackingRtkMasksPage), XString(pell::ids::TrackingBasePage),
        XString(pell::ids::TrackingRtkPage),      XString(pell::ids::TrackingOrcaPage)};
    const QStringList end = {XString(pell::ids::TrackingAntennaPage),
                             XString(pell::ids::TrackingAdvPage)};
    const struct {
        const char* profile;
        bool kestrel;
    } cases[] = {{"ostrel-q", false}, {"lumen7", false}, {"marten", false}, {"pardo7", true}};
    for (const auto& c : cases) {
        SimulatedReceiver receiver(QString::fromLatin1(c.profile));
        Sheet sheet(receiver.Receiver(), nullptr);
        const QStringList kestrel =
            c.kestrel ? QStringList{XString(pell::ids::TrackingKestrelPage)} : QStringList{};
        EXPECT_EQ(Titles(sheet), common + kestrel + end) << c.profile;
        // The twin antenna's rows only where the receiver has them.
        sheet.show();
        CParameterPage& antenna = Page(sheet, sheet.GetPageCount() - 2);
        EXPECT_EQ(antenna.findChildren<QCheckBox*>().front()->isVisible(), c.kestrel);
    }
}

// Every page reads its values; every control, changed alone, sends exactly the one command of
// its kind and the value reads back.
TEST(TrackingSheetTest, EachControlWritesOneCommandOfItsKind) {
    const ScopedPresenter boxes(pell::IDYES);
    SimulatedReceiver receiver(QStringLiteral("pardo7"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    const QRegularExpression command(QStringLiteral(
        R"(^set,(pos|lock|raw|ref|hd|ant|opts|ajm)/[a-z0-9/]+,(-?\d+(\.\d{6})?|[a-z]+|"[^"]*")$)"));
    const QStringList written = ApplyEachControl(receiver, sheet, command);
    EXPECT_GE(written.size(), 30);
    // Twin antenna tracking takes effect after a reset.
    EXPECT_TRUE(std::any_of(boxes.Boxes().begin(), boxes.Boxes().end(), [](const auto& box) {
        return box.text == XString(pell::ids::SoftResetQuestion);
    }));
    for (const char* expected :
         {"set,ref/ant/id,\"PELLPD7_EXTX\"", "set,pos/hd/len,2.250000",
          "set,raw/corr/ca/code,normal", "set,raw/corr/ca/carrier,mpnew", "set,lock/hd,off"})
        EXPECT_TRUE(written.contains(QLatin1String(expected))) << expected;
    Sheet again(receiver.Receiver(), nullptr);
    again.show();
    EXPECT_EQ(Page(again, 3).findChild<QLineEdit*>()->text(), QStringLiteral("PELLPD7_EXTX"));
    EXPECT_EQ(Page(again, 6).findChild<QDoubleSpinBox*>()->value(), 2.25);
}

// The sheet's masks hold every parameter its pages write: Cancel puts them all back.
TEST(TrackingSheetTest, CancelPutsBackEverythingThePagesWrite) {
    SimulatedReceiver receiver(QStringLiteral("pardo7"));
    Sheet sheet(receiver.Receiver(), nullptr);
    sheet.show();
    QStringList commands;
    for (int index = 0; index < sheet.GetPageCount(); ++index) {
        CParameterPage& page = Page(sheet, index);
        for (QWidget* control : page.findChildren<QWidget*>())
            if (control->isVisible() && control->isEnabled())
                Change(control);
        commands << page.PendingCommands();
    }
    ASSERT_GE(commands.size(), 30);
    std::map<QString, QString> before;
    for (const QString& command : commands)
        before[command.section(QLatin1Char(','), 1, 1)] = {};
    for (auto& [path, value] : before)
        value = receiver.Value(path);
    sheet.BeforeWriting();
    CVexReceiverMate(receiver.Receiver()).Run(commands.join(QLatin1Char(';')));
    Click(sheet, "cancelButton");
    for (const auto& [path, value] : before)
        EXPECT_EQ(receiver.Value(path), value) << path.toStdString();
}

// A dialog's OK writes at once and marks its page, so Apply keeps the values and Cancel puts
// them back; its Cancel writes nothing.
TEST(TrackingSheetTest, ADialogWritesOnItsOkAndTheSheetDecidesWhatStays) {
    ScopedPresenter boxes;
    enum EAnswer { Ok, Cancel, RefusedThenCancel };
    const struct {
        int page;
        const char* button;
        EAnswer answer;
        const char* sheetButton; // after the dialog
        bool kept;               // the dialog's value stays on the receiver
    } cases[] = {
        {4, "advancedButton", Ok, "cancelButton", false},
        {6, "advancedButton", Ok, "applyButton", true},
        {8, "antiJammingButton", Ok, "okButton", true},
        {8, "antiJammingButton", Cancel, "cancelButton", false},
        // What an OK wrote before the refusal goes back with the dialog's Cancel.
        {4, "advancedButton", RefusedThenCancel, "okButton", false},
    };
    for (const auto& c : cases) {
        SimulatedReceiver receiver(QStringLiteral("pardo7"));
        Sheet sheet(receiver.Receiver(), nullptr);
        sheet.show();
        CParameterPage& page = Page(sheet, c.page);
        QString written;
        const qint64 before = receiver.Simulator().ReceivedCount();
        WithDialog(
            receiver, [&] { Click(page, c.button); },
            [&](CParameterDialog& dialog) {
                written = ChangeOne(dialog);
                if (c.answer == RefusedThenCancel) {
                    QSpinBox* last = dialog.Body().findChildren<QSpinBox*>().back();
                    last->setMaximum(last->maximum() * 2);
                    last->setValue(last->maximum());
                    Click(dialog, "okButton");
                    EXPECT_TRUE(dialog.isVisible());
                }
                Click(dialog, c.answer == Ok ? "okButton" : "cancelButton");
            });
        ASSERT_FALSE(written.isEmpty()) << c.button;
        if (c.answer != RefusedThenCancel) {
            EXPECT_EQ(WritesSince(receiver, before),
                      c.answer == Ok ? QStringList{written} : QStringList{});
        }
        EXPECT_EQ(page.IsModified(), c.answer == Ok);
        Click(sheet, c.sheetButton);
        if (c.sheetButton == std::string_view("applyButton"))
            Click(sheet, "cancelButton");
        EXPECT_EQ(receiver.Value(written.section(QLatin1Char(','), 1, 1)) ==
                      written.section(QLatin1Char(','), 2),
                  c.kept)
            << written.toStdString();
    }
}

// The dialog alone: OK writes and fills the caller's record; a refusal keeps it open with the
// control marked, and Cancel then puts back what it wrote and leaves the record.
TEST(TrackingSheetTest, TheAdvancedRtkDialogAloneFillsTheRecord) {
    ScopedPresenter boxes;
    SimulatedReceiver receiver(QStringLiteral("ostrel-q"));
    AdvancedRTKStruct values;
    values.maximumResidualMm = 1;
    const auto controls = [](CParameterDialog& dialog) {
        return std::tuple(dialog.Body().findChildren<QComboBox*>().front(),
                          dialog.Body().findChildren<QDoubleSpinBox*>().front(),
                          dialog.Body().findChildren<QSpinBox*>().front());
    };
    WithDialog(
        receiver,
        [&] { EXPECT_EQ(run_PositioningAdvancedRTKDlg(receiver.Receiver(), nullptr, values), 1); },
        [&](CParameterDialog& dialog) {
            auto [vrs, baseline, residual] = controls(dialog);
            vrs->setCurrentIndex(vrs->findData(QStringLiteral("on")));
            baseline->setValue(1250.5);
            Click(dialog, "okButton");
        });
    EXPECT_EQ(values.vrsMode, rxio::vex::OffOnAuto::On);
    EXPECT_EQ(values.ifBaselineM, 1250.5);
    EXPECT_TRUE(values.weightingBasedOnResiduals);
    EXPECT_EQ(values.maximumResidualMm, 100);
    EXPECT_EQ(receiver.Value(QStringLiteral("pos/rtk/ifr")).toDouble(), 1250.5);

    WithDialog(
        receiver,
        [&] {
            EXPECT_EQ(run_PositioningAdvancedRTKDlg(receiver.Receiver(), nullptr, values),
                      pell::IDCANCEL);
        },
        [&](CParameterDialog& dialog) {
            auto [vrs, baseline, residual] = controls(dialog);
            baseline->setValue(10);
            residual->setMaximum(20000);
            residual->setValue(20000);
            Click(dialog, "okButton");
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_TRUE(residual->property("refused").toBool());
            EXPECT_EQ(receiver.Value(QStringLiteral("pos/rtk/ifr")).toDouble(), 10);
            Click(dialog, "cancelButton");
        });
    ASSERT_FALSE(boxes.Boxes().empty());
    EXPECT_TRUE(boxes.Boxes().back().text.contains(QStringLiteral("{2,,value out of range}")));
    EXPECT_EQ(receiver.Value(QStringLiteral("pos/rtk/ifr")).toDouble(), 1250.5);
    EXPECT_EQ(values.ifBaselineM, 1250.5);
}

} // namespace
