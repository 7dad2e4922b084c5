#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "config/ReceiverSettingsExport_SelectFilePP.h"
#include "config/ReceiverSettingsExport_SelectParametersPP.h"
#include "config/ReceiverSettingsImport_ProgressPP.h"
#include "config/ReceiverSettingsImport_SelectFilePP.h"
#include "config/ReceiverSettingsImport_SelectParametersPP.h"
#include "config/SettingsFile.h"
#include "config/VexReceiverAccessor.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QFile>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace VOXA2JSON;
using ExportWizard = CPellWindow<CReceiverSettingsExportWizard>;
using ImportWizard = CPellWindow<CReceiverSettingsImportWizard>;

bool Waits(const std::function<bool()>& condition, int ms = 30000) {
    return QTest::qWaitFor(condition, ms);
}

void Click(QWidget& wizard, const char* button) {
    wizard.findChild<QPushButton*>(QLatin1String(button))->click();
}

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What the receiver holds of everything the dictionary names, as the engine would save it.
QByteArray Snapshot(pell::test::SimulatedReceiver& receiver) {
    QString error;
    auto root = Dictionary::Load(Dictionary::DefaultPath(), &error);
    SelectDefaults(*root, EDirection::Export, true);
    CVexReceiverAccessor accessor(receiver.Receiver());
    ReadAll(*root, accessor);
    return BuildJson(*root);
}

class WizardTest : public testing::Test {
protected:
    // A file saved from `profile` with everything in it.
    QString SavedFrom(const QString& profile, const char* name) {
        pell::test::SimulatedReceiver receiver(profile);
        const QString path = dir.filePath(QLatin1String(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(Snapshot(receiver));
        return path;
    }

    // Opens the import wizard on `path` and goes on to the progress page.
    void StartImport(ImportWizard& wizard, const QString& path) {
        wizard.show();
        wizard.FilePage().SetFilePath(path);
        Click(wizard, "nextButton");
        ASSERT_EQ(wizard.GetActiveIndex(), 1);
        Click(wizard, "nextButton");
        ASSERT_EQ(wizard.GetActiveIndex(), 2);
    }

    pell::test::ScopedPresenter boxes;
    QTemporaryDir dir;
};

TEST_F(WizardTest, ExportWritesWhatIsCheckedAndRemembersTheFile) {
    pell::test::SimulatedReceiver receiver(QStringLiteral("pardo7"));
    const QString path = dir.filePath(QStringLiteral("pardo.json"));
    {
        ExportWizard wizard(receiver.Receiver(), nullptr);
        wizard.show();
        auto& page = wizard.ParametersPage();
        ASSERT_TRUE(Waits([&] { return page.HasRead(); }));
        EXPECT_EQ(page.findChild<QProgressBar*>()->value(),
                  page.findChild<QProgressBar*>()->maximum());
        // Check boxes start by DONOTEXPORTBYDEFAULT, objects and variables alike.
        int unchecked = 0;
        for (QTreeWidgetItemIterator it(&page.Tree()); *it; ++it) {
            const Element* element = page.Tree().ElementOf(*it);
            EXPECT_EQ((*it)->checkState(0) == Qt::Checked, !element->Has(DoNotExportByDefault))
                << element->Path().toStdString();
            unchecked += element->Has(DoNotExportByDefault) ? 1 : 0;
        }
        EXPECT_GT(unchecked, 0);
        // The details of an indexed boolean name the list item it lives in.
        for (QTreeWidgetItemIterator it(&page.Tree()); *it; ++it)
            if (page.Tree().ElementOf(*it)->Path() == QLatin1String("Positioning/Satellites/Gps1"))
                page.Tree().setCurrentItem(*it);
        page.ShowDetails();
        ASSERT_FALSE(boxes.Boxes().empty());
        EXPECT_EQ(boxes.Boxes().back().text,
                  XString(pell::ids::SettingsDetailsFriendlyName) + "\"GPS PRN 1 used\"\r\n" +
                      XString(pell::ids::SettingsDetailsName) + "\"Gps1\"\r\n" +
                      XString(pell::ids::SettingsDetailsPath) +
                      "\"Positioning/Satellites/Gps1\"\r\n" +
                      XString(pell::ids::SettingsDetailsType) + "\"Boolean\"" +
                      XString(pell::ids::SettingsDetailsTrue) + "\"y\"" +
                      XString(pell::ids::SettingsDetailsFalse) + "\"n\"\r\n" +
                      XString(pell::ids::SettingsDetailsParameter) + "\"pos/gps/sat[0]\"");
        // An unchecked object leaves its subtree out; its children keep their own check boxes.
        QTreeWidgetItem* first = page.Tree().topLevelItem(0);
        const auto states = [first] {
            QList<Qt::CheckState> children;
            for (int i = 0; i < first->childCount(); ++i)
                children << first->child(i)->checkState(0);
            return children;
        };
        const QList<Qt::CheckState> children = states();
        EXPECT_TRUE(children.contains(Qt::Checked));
        first->setCheckState(0, Qt::Unchecked);
        EXPECT_EQ(states(), children);

        Click(wizard, "nextButton");
        ASSERT_EQ(wizard.GetActiveIndex(), 1);
        EXPECT_EQ(wizard.FilePage().FilePath(), QString()); // never stored
        wizard.FilePage().SetFilePath(path);
        Click(wizard, "finishButton");
        EXPECT_EQ(wizard.result(), pell::ID_WIZFINISH);
        const QByteArray written = Contents(path);
        EXPECT_EQ(written, BuildJson(*page.Root()));
        EXPECT_FALSE(written.contains('"' + page.Root()->children[0]->name.toUtf8() + '"'));
        ASSERT_FALSE(boxes.Boxes().empty());
        EXPECT_EQ(boxes.Boxes().back().text, XString(pell::ids::SettingsFileSaved));
    }
    ExportWizard again(receiver.Receiver(), nullptr);
    again.show();
    again.SetActivePage(1);
    EXPECT_EQ(again.FilePage().FilePath(), path);
}

TEST_F(WizardTest, ImportIntoAnotherReceiverReportsEachSetting) {
    const QString path = SavedFrom(QStringLiteral("pardo7"), "pardo.json");
    pell::test::SimulatedReceiver lumen(QStringLiteral("lumen7"));
    ImportWizard wizard(lumen.Receiver(), nullptr);
    auto& progress = wizard.ProgressPage();
    // The writing starts from the event loop: not writing yet is not done.
    QSignalSpy done(&progress, &CReceiverSettingsImport_ProgressPP::writingDone);
    StartImport(wizard, path);
    ASSERT_TRUE(Waits([&] { return done.count() > 0; }));
    QStringList results;
    for (int i = 0; i < progress.Rows().topLevelItemCount(); ++i)
        results << progress.Rows().topLevelItem(i)->text(1);
    EXPECT_TRUE(results.contains(XString(pell::ids::SettingsImported)));
    EXPECT_TRUE(results.contains(XString(pell::ids::SettingsDoesNotApply)));
    // One row per setting that had something to write: read-only ones have none.
    QString error;
    auto root = Dictionary::Load(Dictionary::DefaultPath(), &error);
    SelectDefaults(*root, EDirection::Import);
    TakeValues(*root, *ReadSettingsFile(path, &error));
    const std::vector<Variable*> selected = SelectedVariables(*root);
    const auto rows = std::count_if(selected.begin(), selected.end(), [](const Variable* variable) {
        return !variable->value.invalid && !variable->Has(ReadOnly);
    });
    EXPECT_EQ(progress.Rows().topLevelItemCount(), rows);
    Click(wizard, "finishButton");
    EXPECT_EQ(wizard.result(), pell::ID_WIZFINISH);
}

TEST_F(WizardTest, CancelStopsReadingAndPutsBackWhatWasWritten) {
    pell::test::SimulatedReceiver receiver(QStringLiteral("ostrel-q"));
    // Reading and writing run inside the event loop that a wait would turn: Cancel is clicked
    // from within, as a user's click arrives while a command waits.
    {
        ExportWizard wizard(receiver.Receiver(), nullptr);
        wizard.show();
        auto* bar = wizard.ParametersPage().findChild<QProgressBar*>();
        QObject::connect(bar, &QProgressBar::valueChanged, &wizard, [&](int value) {
            if (value == 2)
                wizard.ParametersPage().ShowDetails(); // waits: the reading talks to the receiver
            if (value == 3)
                Click(wizard, "cancelButton");
        });
        ASSERT_TRUE(Waits([&] { return !wizard.isVisible(); }));
        EXPECT_LT(bar->value(), bar->maximum());
        EXPECT_TRUE(boxes.Boxes().empty());
        const qsizetype sent = receiver.Simulator().ReceivedCount();
        QTest::qWait(200);
        EXPECT_EQ(receiver.Simulator().ReceivedCount(), sent); // no reading goes on
        EXPECT_EQ(wizard.result(), pell::IDCANCEL);
    }
    // A file of other values, half written when Cancel comes.
    const QString path = SavedFrom(QStringLiteral("soren"), "soren.json");
    const QByteArray before = Snapshot(receiver);
    ASSERT_NE(Contents(path), before); // the import has something to put back
    ImportWizard wizard(receiver.Receiver(), nullptr);
    auto& progress = wizard.ProgressPage();
    QObject::connect(progress.Rows().model(), &QAbstractItemModel::rowsInserted, &wizard, [&] {
        if (progress.Rows().topLevelItemCount() == 5)
            Click(wizard, "cancelButton");
    });
    StartImport(wizard, path);
    ASSERT_TRUE(Waits([&] { return !wizard.isVisible(); }));
    EXPECT_EQ(wizard.result(), pell::IDCANCEL);
    EXPECT_EQ(Snapshot(receiver), before);
}

TEST_F(WizardTest, ShowValuesIsSharedAndABadFileKeepsThePage) {
    pell::test::SimulatedReceiver receiver;
    const QString notJson = dir.filePath(QStringLiteral("notes.json"));
    QFile file(notJson);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("receiver notes, not settings");
    file.close();
    for (const bool show : {true, false}) {
        {
            ExportWizard wizard(receiver.Receiver(), nullptr);
            wizard.show();
            wizard.ParametersPage().findChild<QCheckBox*>()->setChecked(show);
            EXPECT_EQ(wizard.ParametersPage().Tree().isColumnHidden(1), !show);
        }
        ImportWizard wizard(receiver.Receiver(), nullptr);
        wizard.show();
        wizard.FilePage().SetFilePath(notJson);
        Click(wizard, "nextButton");
        EXPECT_EQ(wizard.GetActiveIndex(), 0);
        ASSERT_FALSE(boxes.Boxes().empty());
        EXPECT_EQ(boxes.Boxes().back().text, XString(pell::ids::SettingsFileCannotBeParsed));
        wizard.FilePage().SetFilePath(SavedFrom(QStringLiteral("ostrel-q"), "ostrel.json"));
        Click(wizard, "nextButton");
        ASSERT_EQ(wizard.GetActiveIndex(), 1);
        auto& page = wizard.ParametersPage();
        EXPECT_EQ(page.findChild<QCheckBox*>()->isChecked(), show);
        EXPECT_EQ(page.Tree().isColumnHidden(1), !show);
    }
}

} // namespace
