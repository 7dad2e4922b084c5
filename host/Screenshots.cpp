#include "Screenshots.h"

#include "AboutDialog.h"
#include "MainWindow.h"
#include "Model.h"
#include "Simulator.h"
#include "config/IPv4Dlg.h"
#include "config/NetworkPS.h"
#include "config/NotificationsPS.h"
#include "config/NtripPS.h"
#include "config/Ntrip_Caster_MountpointsDlg.h"
#include "config/Ntrip_Caster_UsersDlg.h"
#include "config/Ntrip_Client_SelectMountpointDlg.h"
#include "config/PPSEventFrqPS.h"
#include "config/ReceiverPortsPS.h"
#include "config/ReceiverSettingsExport_SelectFilePP.h"
#include "config/ReceiverSettingsExport_SelectParametersPP.h"
#include "config/ReceiverSettingsImport_ProgressPP.h"
#include "config/ReceiverSettingsImport_SelectFilePP.h"
#include "config/ReceiverSettingsImport_SelectParametersPP.h"
#include "config/SettingsFile.h"
#include "config/TrackingPositioningPS.h"
#include "config/UserCredentialsDlg.h"
#include "lib/PellLib.h"
#include "links/BluetoothDlg.h"
#include "links/BluetoothSmartPS.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"
#include "status/ReceiverStatusPS.h"
#include "status/StatusSatPlotPP.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPushButton>
#include <QSlider>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTextStream>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <utility>

namespace dorrit {

namespace {

const QSize kHandheld(480, 640);
const QSize kDesktop(760, 560);

// Lets replies that are on their way (the receiver's identity) arrive first.
void Settle(int ms = 300) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

class Shooter {
public:
    explicit Shooter(const QDir& folder) : m_folder(folder) {}

    // Renders without turning the event loop: layouts follow the size, sockets wait.
    void Save(QWidget& widget, const QString& name, QSize size = {}) {
        if (size.isValid())
            widget.resize(size);
        widget.show();
        QCoreApplication::sendPostedEvents();
        const QString path = m_folder.filePath(name + QStringLiteral(".png"));
        const bool saved = widget.grab().save(path);
        QTextStream(saved ? stdout : stderr)
            << (saved ? "saved " : "could not save ") << path << '\n';
        m_failures += saved ? 0 : 1;
    }
    void SaveBothSizes(QWidget& widget, const QString& name) {
        Save(widget, name, kDesktop);
        Save(widget, name + QStringLiteral("-480x640"), kHandheld);
    }
    void Fail() { ++m_failures; }
    int Failures() const { return m_failures; }

private:
    QDir m_folder;
    int m_failures = 0;
};

// The status sheet over the simulated sky with tracks on, one satellite fading: the receiver
// stopped reporting it a few seconds ago.
void SaveStatusSheet(Shooter& shooter, rxsim::CSimulator& simulator, MainWindow& window) {
    CPellWindow<CReceiverStatusPS> sheet(window.Receiver(), &window);
    sheet.resize(kDesktop);
    sheet.show();
    sheet.PlotPage().TracksBox().setChecked(true);
    Settle(3000);
    for (const auto& [usi, satellite] : sheet.Sky().Records()) {
        if (satellite.GetConstellation(false) == rxio::ISatListListener::SatelliteInfo::GPS &&
            satellite.Elevation > 20 && satellite.Elevation != 127) {
            simulator.GetFaults().hiddenSatellites.insert(usi);
            break;
        }
    }
    Settle(4000);
    sheet.SetActivePage(0);
    shooter.SaveBothSizes(sheet, QStringLiteral("status-sky-plot"));
    QSlider& moment = sheet.PlotPage().MomentSlider();
    moment.setValue(3 * 60 / CStatusSatPlotPP::kSlideStepMinutes);
    shooter.Save(sheet, QStringLiteral("status-sky-plot-in-3-hours"), kDesktop);
    moment.setValue(0);
    sheet.SetActivePage(1);
    shooter.SaveBothSizes(sheet, QStringLiteral("status-satellites"));
    sheet.close();
}

// Every page of an open configuration sheet with the values read from the receiver.
void SavePages(Shooter& shooter, CParameterSheet& sheet, const QString& prefix) {
    sheet.resize(kDesktop);
    sheet.show();
    for (int i = 0; i < sheet.GetPageCount(); ++i) {
        sheet.SetActivePage(i);
        QString title = sheet.GetPage(i)->GetTitle().toLower().remove(QLatin1Char('.'));
        shooter.SaveBothSizes(sheet, prefix + title.replace(QLatin1Char(' '), QLatin1Char('-')));
    }
}

template <class Sheet>
void SaveSheetPages(Shooter& shooter, MainWindow& window, const QString& prefix) {
    CPellWindow<Sheet> sheet(window.Receiver(), &window);
    SavePages(shooter, sheet, prefix);
    sheet.close();
}

// A dialog at its own size and filling the field controller's screen; `args` follow the
// receiver and the sheet in its constructor.
template <class Dialog, class... Args>
void SaveDialog(Shooter& shooter, CParameterSheet& sheet, const QString& name, Args&&... args) {
    CPellWindow<Dialog> dialog(sheet.GetReceiver(), &sheet, std::forward<Args>(args)...);
    dialog.show();
    dialog.adjustSize();
    shooter.Save(dialog, name);
    shooter.Save(dialog, name + QStringLiteral("-480x640"), kHandheld);
    dialog.close();
}

// The NTRIP sheet of a client set up for a large caster, and its mount point list once the
// receiver has a fix.
void SaveNtripSheet(Shooter& shooter, MainWindow& window) {
    const CVexReceiverMate mate(window.Receiver());
    using pell::vexcmd::SetChoice;
    using pell::vexcmd::SetText;
    mate.Run(SetChoice(QStringLiteral("ntrip/mode"), QStringLiteral("client")) + QLatin1Char(';') +
             SetChoice(QStringLiteral("dev/ntrip/a/imode"), QStringLiteral("rtcm3")) +
             QLatin1Char(';') +
             SetText(QStringLiteral("ntrip/caster/addr"), QStringLiteral("large.example.net")) +
             QLatin1Char(';') +
             SetText(QStringLiteral("ntrip/caster/mountpt"), QStringLiteral("Joho0013")) +
             QLatin1Char(';') +
             SetText(QStringLiteral("ntrip/caster/user"), QStringLiteral("surveyor")) +
             QLatin1Char(';') +
             SetText(QStringLiteral("ntrip/caster/passwd"), QStringLiteral("s3cret")));
    CPellWindow<CNtripPS> sheet(window.Receiver(), &window);
    SavePages(shooter, sheet, QStringLiteral("ntrip-"));
    CPellWindow<CNtrip_Client_SelectMountpointDlg> select(window.Receiver(),
                                                          QStringLiteral("Joho0013"), &sheet);
    select.show();
    Settle(1500);
    shooter.SaveBothSizes(select, QStringLiteral("ntrip-select-mountpoint"));
    select.close();
    const QString users = QStringLiteral("/app/ntrip/caster/usr");
    mate.Run(
        pell::vexcmd::Create(users, 0) + QLatin1Char(';') +
        SetText(users + QStringLiteral("/00/name"), QStringLiteral("survey-crew")) +
        QLatin1Char(';') +
        SetText(users + QStringLiteral("/00/passwd"), QStringLiteral("rover42")) +
        QLatin1Char(';') + pell::vexcmd::Create(users, 1) + QLatin1Char(';') +
        SetText(users + QStringLiteral("/01/name"), QStringLiteral("visitor")) + QLatin1Char(';') +
        SetText(users + QStringLiteral("/01/expireat"), QStringLiteral("2026/12/31 23:59:59")));
    CPellWindow<CNtrip_Caster_UsersDlg> userList(window.Receiver(), &sheet);
    userList.show();
    shooter.SaveBothSizes(userList, QStringLiteral("ntrip-caster-users"));
    userList.close();
    const QString slot = QStringLiteral("/app/ntrip/caster/0/%1/");
    const QString port = QStringLiteral("/app/ntrip/caster/0/%1");
    mate.Run(
        SetText(slot.arg(0) + QStringLiteral("name"), QStringLiteral("BASE_MSM4")) +
        QLatin1Char(';') +
        SetText(slot.arg(0) + QStringLiteral("msgset"),
                QStringLiteral("RTCM 3: 1006,1033,1074,1084,1094,1124")) +
        QLatin1Char(';') +
        SetText(slot.arg(1) + QStringLiteral("name"), QStringLiteral("BASE_RTCM32")) +
        QLatin1Char(';') +
        SetText(slot.arg(1) + QStringLiteral("msgset"), QStringLiteral("RTCM 3: 1004,1006,1012")));
    for (const char* message :
         {"rtcm3/1006", "rtcm3/1033", "rtcm3/1074", "rtcm3/1084", "rtcm3/1094", "rtcm3/1124"})
        mate.Run(pell::vexcmd::EnableMessages(port.arg(0), QLatin1String(message)));
    CPellWindow<CNtrip_Caster_MountpointsDlg> mountpoints(window.Receiver(), &sheet, 0, 4);
    mountpoints.show();
    shooter.SaveBothSizes(mountpoints, QStringLiteral("ntrip-caster-mountpoints"));
    mountpoints.close();
    CPellWindow<CNtrip_Caster_MountpointDlg> mountpoint(
        QStringLiteral("SOREN_MSM4"), QStringLiteral("RTCM 3: 1006,1033,1074,1084,1094,1124"),
        QStringList{QStringLiteral("rtcm3/1006"), QStringLiteral("rtcm3/1033"),
                    QStringLiteral("rtcm3/1074"), QStringLiteral("rtcm3/1084"),
                    QStringLiteral("rtcm3/1094"), QStringLiteral("rtcm3/1124")},
        QStringList{QStringLiteral("SOREN_LEGACY")}, &sheet);
    mountpoint.show();
    mountpoint.adjustSize();
    shooter.Save(mountpoint, QStringLiteral("ntrip-caster-mountpoint"));
    shooter.Save(mountpoint, QStringLiteral("ntrip-caster-mountpoint-480x640"), kHandheld);
    mountpoint.close();
    SaveDialog<CNtrip_Server_OutputDlg>(shooter, sheet, QStringLiteral("ntrip-server-output"), 1);
    sheet.close();
}

// Turns the event loop until `done` or `ms` have passed; whether it is done.
bool SettleUntil(const std::function<bool()>& done, int ms) {
    for (int waited = 0; !done(); waited += 100) {
        if (waited >= ms)
            return false;
        Settle(100);
    }
    return true;
}

// A window connected to `source`; a failure to connect is told and counted.
bool Connect(Shooter& shooter, MainWindow& window, const pell::ReceiverTarget& source) {
    window.ConnectTo(source);
    if (SettleUntil([&] { return window.Receiver() != nullptr; }, 30000))
        return true;
    QTextStream(stderr) << "could not connect to " << source.Describe() << '\n';
    shooter.Fail();
    return false;
}

// Every page of the tracking sheet and its three dialogs, over a simulated receiver that has
// them all (the twin antenna pages need the heading feature).
void SaveTrackingSheet(Shooter& shooter, std::shared_ptr<const rxsim::CModel> model) {
    MainWindow window(std::move(model));
    if (!Connect(shooter, window, {ReceiverTarget::Simulator, QStringLiteral("pardo7"), 0, false}))
        return;
    CPellWindow<CTrackingPositioningPS> sheet(window.Receiver(), &window);
    SavePages(shooter, sheet, QStringLiteral("tracking-"));
    SaveDialog<CTrackingPositioning_AdvancedRTKDlg>(shooter, sheet,
                                                    QStringLiteral("tracking-advanced-rtk"));
    SaveDialog<CTrackingPositioning_AdvancedKestrelDlg>(
        shooter, sheet, QStringLiteral("tracking-advanced-kestrel"));
    SaveDialog<CTrackingPositioning_AntiJammingDlg>(shooter, sheet,
                                                    QStringLiteral("tracking-anti-jamming"));
    sheet.close();
}

// The Bluetooth LE sheet's pages (pardo7) and the classic module's dialog (marten), with what
// the simulated modules hold.
void SaveBluetoothWindows(Shooter& shooter, const std::shared_ptr<const rxsim::CModel>& model) {
    for (const QString& profile : {QStringLiteral("pardo7"), QStringLiteral("marten")}) {
        MainWindow window(model);
        if (!Connect(shooter, window, {ReceiverTarget::Simulator, profile, 0, false}))
            return;
        const bool shown = pell::RunAndReport(&window, [&] {
            if (profile == QLatin1String("pardo7")) {
                CPellWindow<CBluetoothSmartPS> sheet(window.Receiver(), &window);
                sheet.Prepare();
                sheet.resize(kDesktop);
                sheet.show();
                for (int i = 0; i < sheet.GetPageCount(); ++i) {
                    sheet.SetActivePage(i);
                    QString title = sheet.GetPage(i)->GetTitle().toLower();
                    shooter.SaveBothSizes(sheet, QStringLiteral("bluetooth-le-") + title);
                }
                sheet.close();
            } else {
                CPellWindow<CBluetoothDlg> dialog(window.Receiver(), &window);
                dialog.Prepare();
                dialog.show();
                dialog.adjustSize();
                shooter.Save(dialog, QStringLiteral("bluetooth"));
                shooter.Save(dialog, QStringLiteral("bluetooth-480x640"), kHandheld);
                dialog.close();
            }
        });
        if (!shown)
            shooter.Fail();
    }
}

// The network sheet of a receiver with Ethernet, wireless LAN and servers (pardo7, its access
// point on) with its address and account dialogs, and of one with a cellular modem (marten).
void SaveNetworkSheets(Shooter& shooter, const std::shared_ptr<const rxsim::CModel>& model) {
    for (const QString& profile : {QStringLiteral("pardo7"), QStringLiteral("marten")}) {
        MainWindow window(model);
        if (!Connect(shooter, window, {ReceiverTarget::Simulator, profile, 0, false}))
            return;
        const CVexReceiverMate mate(window.Receiver());
        using pell::vexcmd::SetText;
        if (profile == QLatin1String("pardo7"))
            mate.Run(QStringLiteral("set,wlan/mode,ap;set,net/tcpc/enable,on;") +
                     SetText(QStringLiteral("wlan/ap/name"), QStringLiteral("PARDO7-20417")) +
                     QLatin1Char(';') +
                     SetText(QStringLiteral("wlan/ap/passwd"), QStringLiteral("field-crew")) +
                     QLatin1Char(';') +
                     SetText(QStringLiteral("net/tcpc/addr"), QStringLiteral("base.example.net")));
        CPellWindow<CNetworkPS> sheet(window.Receiver(), &window);
        SavePages(shooter, sheet, QStringLiteral("network-") + profile + QLatin1Char('-'));
        if (profile == QLatin1String("pardo7")) {
            SaveDialog<CIPv4Dlg>(
                shooter, sheet, QStringLiteral("network-access-point-address"),
                g_PellLibApp.XLoadString(pell::ids::NetworkAccessPointAddress),
                CIPv4Dlg::Paths{
                    QStringLiteral("wlan/ap/ip"), QStringLiteral("wlan/ap/mask"), {}, {}});
            SaveDialog<CUserCredentialsDlg>(
                shooter, sheet, QStringLiteral("network-ftp-account"),
                g_PellLibApp.XLoadString(pell::ids::NetworkFtpAccountDialog),
                QStringLiteral("net/ftp/login"), QStringLiteral("net/ftp/passwd"));
            SaveDialog<CUserCredentialsDlg>(
                shooter, sheet, QStringLiteral("network-web-admin-password"),
                g_PellLibApp.XLoadString(pell::ids::NetworkWebAccountDialog)
                    .arg(QStringLiteral("admin")),
                QString(), QStringLiteral("net/http/adminpasswd"), QStringLiteral("admin"));
        }
        sheet.close();
    }
}

// The notifications sheet of a receiver set up to mail two watchers through a provider's server,
// with its three dialogs.
void SaveNotificationsSheet(Shooter& shooter, MainWindow& window) {
    const CVexReceiverMate mate(window.Receiver());
    using pell::vexcmd::SetChoice;
    using pell::vexcmd::SetText;
    const QString email = QStringLiteral("/app/notif/email/");
    const QString watchers = QStringLiteral("/app/notif/watchers");
    mate.Run(QStringList{
        SetText(email + QStringLiteral("user"), QStringLiteral("rover-17@survey.example.com")),
        SetText(email + QStringLiteral("password"), QStringLiteral("s3cret")),
        SetText(email + QStringLiteral("host"), QStringLiteral("smtp.example.com")),
        pell::vexcmd::SetSigned(email + QStringLiteral("port"), 587),
        pell::vexcmd::SetSigned(QStringLiteral("/app/notif/bat/a/level/period"), 3600),
        pell::vexcmd::Create(watchers, 0),
        SetText(watchers + QStringLiteral("/00/email"),
                QStringLiteral("crew-chief@survey.example.com")),
        SetChoice(watchers + QStringLiteral("/00/level"), QStringLiteral("warning")),
        pell::vexcmd::Create(watchers, 1),
        SetText(watchers + QStringLiteral("/01/email"),
                QStringLiteral("it-desk@survey.example.com")),
        SetChoice(watchers + QStringLiteral("/01/level"), QStringLiteral("critical")),
    }
                 .join(QLatin1Char(';')));
    CPellWindow<CNotificationsPS> sheet(window.Receiver(), &window);
    SavePages(shooter, sheet, QStringLiteral("notifications-"));
    SaveDialog<CNotifications_ServerCfgDlg>(shooter, sheet,
                                            QStringLiteral("notifications-outgoing-server"));
    SaveDialog<CNotifications_EventDlg>(shooter, sheet, QStringLiteral("notifications-event"), 1);
    CPellWindow<CNotifications_WatcherDlg> watcher(
        CKeyedList::Values{
            {QStringLiteral("email"), QStringLiteral("crew-chief@survey.example.com")},
            {QStringLiteral("level"), QStringLiteral("warning")}},
        0, &sheet);
    watcher.show();
    watcher.adjustSize();
    shooter.Save(watcher, QStringLiteral("notifications-watcher"));
    shooter.Save(watcher, QStringLiteral("notifications-watcher-480x640"), kHandheld);
    watcher.close();
    sheet.close();
}

// Opens the branch of the settings tree named `name` with all below it.
void ExpandBranch(CReceiverSettingsTree& tree, const QString& name) {
    const QList<QTreeWidgetItem*> found = tree.findItems(name, Qt::MatchExactly, 0);
    if (found.isEmpty())
        return;
    found.front()->setExpanded(true);
    for (int i = 0; i < found.front()->childCount(); ++i)
        found.front()->child(i)->setExpanded(true);
    tree.scrollToItem(found.front(), QAbstractItemView::PositionAtTop);
}

// Both settings wizards over the connected receiver, values shown: the export reads them, and
// the import loads them back with one value the receiver refuses, so the report shows a failure.
void SaveSettingsWizards(Shooter& shooter, MainWindow& window, const QDir& folder) {
    const QString file = folder.filePath(QStringLiteral("ostrel-q-settings.json"));
    CReceiverSettingsTree::SetShowValues(true);
    {
        CPellWindow<CReceiverSettingsExportWizard> wizard(window.Receiver(), &window);
        wizard.resize(kDesktop);
        wizard.show();
        CReceiverSettingsExport_SelectParametersPP& page = wizard.ParametersPage();
        if (!SettleUntil([&] { return page.HasRead(); }, 60000)) {
            QTextStream(stderr) << "the export wizard read no values\n";
            shooter.Fail();
            return;
        }
        ExpandBranch(page.Tree(), QStringLiteral("Positioning"));
        shooter.SaveBothSizes(wizard, QStringLiteral("settings-export-parameters"));
        wizard.findChild<QPushButton*>(QStringLiteral("nextButton"))->click();
        wizard.FilePage().SetFilePath(file);
        shooter.SaveBothSizes(wizard, QStringLiteral("settings-export-file"));

        QJsonObject settings = QJsonDocument::fromJson(VOXA2JSON::BuildJson(*page.Root())).object();
        QJsonObject positioning = settings.value(QStringLiteral("Positioning")).toObject();
        positioning.insert(QStringLiteral("ElevationMask"), 95);
        settings.insert(QStringLiteral("Positioning"), positioning);
        QString error;
        if (!VOXA2JSON::WriteSettingsFile(
                file, QJsonDocument(settings).toJson(QJsonDocument::Compact), &error)) {
            QTextStream(stderr) << error << '\n';
            shooter.Fail();
        }
        wizard.close();
    }
    CPellWindow<CReceiverSettingsImportWizard> wizard(window.Receiver(), &window);
    wizard.resize(kDesktop);
    wizard.show();
    wizard.FilePage().SetFilePath(file);
    shooter.SaveBothSizes(wizard, QStringLiteral("settings-import-file"));
    wizard.findChild<QPushButton*>(QStringLiteral("nextButton"))->click();
    ExpandBranch(wizard.ParametersPage().Tree(), QStringLiteral("Positioning"));
    shooter.SaveBothSizes(wizard, QStringLiteral("settings-import-parameters"));
    wizard.findChild<QPushButton*>(QStringLiteral("nextButton"))->click();
    CReceiverSettingsImport_ProgressPP& progress = wizard.ProgressPage();
    bool done = false;
    QObject::connect(&progress, &CReceiverSettingsImport_ProgressPP::writingDone,
                     [&] { done = true; });
    if (!SettleUntil([&] { return done; }, 60000)) {
        QTextStream(stderr) << "the import wizard did not finish writing\n";
        shooter.Fail();
    }
    // The refused value in view.
    const QList<QTreeWidgetItem*> refused =
        progress.Rows().findItems(QStringLiteral("Positioning/ElevationMask"), Qt::MatchExactly, 0);
    if (!refused.isEmpty())
        progress.Rows().scrollToItem(refused.front(), QAbstractItemView::PositionAtCenter);
    shooter.SaveBothSizes(wizard, QStringLiteral("settings-import-progress"));
    wizard.close();
    CReceiverSettingsTree::SetShowValues(false);
}

// The status sheet over the sky of the receiver the command line named, once it has sent one.
void SaveSourceSheet(Shooter& shooter, std::shared_ptr<const rxsim::CModel> model,
                     const pell::ReceiverTarget& source) {
    static constexpr int kWaitMs = 30000;
    MainWindow window(std::move(model));
    if (!Connect(shooter, window, source))
        return;
    CPellWindow<CReceiverStatusPS> sheet(window.Receiver(), &window);
    sheet.resize(kDesktop);
    sheet.show();
    sheet.PlotPage().TracksBox().setChecked(true);
    if (!SettleUntil([&] { return !sheet.Sky().Records().empty(); }, kWaitMs)) {
        QTextStream(stderr) << "no sky from " << source.Describe() << " within " << kWaitMs / 1000
                            << " s\n";
        shooter.Fail();
        return;
    }
    // A second epoch, the elevation mask and the almanacs, when the receiver has them.
    Settle(2500);
    sheet.SetActivePage(0);
    shooter.SaveBothSizes(sheet, QStringLiteral("source-status-sky-plot"));
    sheet.SetActivePage(1);
    shooter.SaveBothSizes(sheet, QStringLiteral("source-status-satellites"));
    sheet.close();
}

} // namespace

int SaveScreenshots(std::shared_ptr<const rxsim::CModel> model, const QString& folder,
                    const std::optional<pell::ReceiverTarget>& source) {
    QDir dir(folder);
    if (!dir.mkpath(QStringLiteral("."))) {
        QTextStream(stderr) << "cannot create " << folder << '\n';
        return 1;
    }
    Shooter shooter(dir);

    // A simulated receiver behind a TCP port shows every state a real one goes through.
    rxsim::CSimulator simulator(model, model->Profiles().front().name);
    QTcpServer server;
    std::unique_ptr<QTcpSocket> served;
    QObject::connect(&server, &QTcpServer::newConnection, [&] {
        served.reset(server.nextPendingConnection());
        simulator.Serve(served.get());
    });
    if (!server.listen(QHostAddress::LocalHost)) {
        QTextStream(stderr) << "cannot listen: " << server.errorString() << '\n';
        return 1;
    }

    MainWindow window(model);
    shooter.SaveBothSizes(window, QStringLiteral("main-window-not-connected"));
    window.ShowTarget({ReceiverTarget::Serial, QStringLiteral("/dev/ttyUSB0"), 115200, true});
    shooter.Save(window, QStringLiteral("main-window-serial-480x640"), kHandheld);
    window.ConnectTo({ReceiverTarget::Tcp, QStringLiteral("127.0.0.1"), server.serverPort()});
    shooter.SaveBothSizes(window, QStringLiteral("main-window-connecting"));
    Settle();
    shooter.SaveBothSizes(window, QStringLiteral("main-window"));
    SaveStatusSheet(shooter, simulator, window);
    SaveSettingsWizards(shooter, window, dir);
    SaveSheetPages<CPPSEventFrqPS>(shooter, window, QStringLiteral("timing-"));
    SaveTrackingSheet(shooter, model);
    SaveSheetPages<CReceiverPortsPS>(shooter, window, QStringLiteral("ports-"));
    SaveNtripSheet(shooter, window);
    SaveNotificationsSheet(shooter, window);
    SaveNetworkSheets(shooter, model);
    SaveBluetoothWindows(shooter, model);
    if (served)
        served->abort();
    Settle();
    shooter.SaveBothSizes(window, QStringLiteral("main-window-lost"));

    AboutDialog about(&window);
    Settle();
    shooter.Save(about, QStringLiteral("about"));
    about.close();
    if (source)
        SaveSourceSheet(shooter, model, *source);
    return shooter.Failures();
}

} // namespace dorrit
