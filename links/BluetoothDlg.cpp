#include "links/BluetoothDlg.h"

#include "lib/Common.h"
#include "lib/Drawing.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "lib/Tick.h"
#include "links/BluetoothSmartEngine.h"
#include "links/BluetoothSmartPS.h"
#include "links/PassThrough.h"
#include "receiver/VexCommands.h"
#include "resources/StringIds.h"

#include <QApplication>
#include <QCheckBox>
#include <QCoreApplication>
#include <QDebug>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QScopeGuard>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace {

namespace ids = pell::ids;
namespace vexcmd = pell::vexcmd;

const QString kLine = QStringLiteral("\r\n");
// More than any answer of the module: a line that never ends is cut off here.
constexpr qsizetype kMaxReplyBytes = 64 * 1024;

QString OnOff(bool on) {
    return on ? QStringLiteral("on") : QStringLiteral("off");
}

} // namespace

CBluetoothDeviceType CBluetoothDeviceType::Detect(const QString& model) {
    if (model.compare(QLatin1String("Marten"), Qt::CaseInsensitive) == 0)
        return {Classic, {}};
    if (CBluetoothSmartEngine::ModulePortFor(model) != 0)
        return {Smart, {}};
    return {Unknown, XString(ids::BtUnknownDevice).arg(model)};
}

CBluetoothModuleLink::CBluetoothModuleLink(std::shared_ptr<rxio::IReceiver> receiver)
    : m_receiver(std::move(receiver)), m_mate(m_receiver) {}

CBluetoothModuleLink::~CBluetoothModuleLink() {
    try {
        TearDown();
    } catch (const ulm_std::CException& e) {
        qWarning() << "Bluetooth pass-through not fully undone:" << e.GetErrorMessage();
    }
}

void CBluetoothModuleLink::SetUp() {
    const QString module = vexcmd::PortPath(kModulePort);
    m_restorer = pell::passthrough::RecordPorts(m_mate, module);
    m_mate.SetPortRate(module, QStringLiteral("115200"));
    pell::passthrough::Start(m_mate, module);
    m_suspended = true;
    try {
        Transaction(QStringLiteral("ati\r\n"), {}, QStringLiteral("\r\n\n"), kWakeUpTimeoutMs);
    } catch (const ulm_std::CWinException& e) {
        // A module that was asleep may miss the first line: that is what the line is for.
        if (e.GetErrorCode() != pell::ERROR_TIMEOUT)
            throw;
    }
}

void CBluetoothModuleLink::TearDown() {
    if (std::exchange(m_suspended, false))
        pell::passthrough::End(m_mate);
    if (auto restorer = std::exchange(m_restorer, nullptr))
        restorer->Restore();
}

QString CBluetoothModuleLink::Transaction(const QString& command, const QString& start,
                                          const QString& end, unsigned timeoutMs) {
    rxio::IPort& port = m_receiver->Port();
    port.Purge(rxio::IPort::PurgeReceive);
    port.Write(command.toUtf8());
    const std::uint32_t begin = pell::GetTickCount();
    QByteArray bytes;
    for (;;) {
        // The whole reply decoded at once, so a character split across reads stays whole.
        if (auto reply = FrameReply(bytes, start.toUtf8(), end.toUtf8()))
            return *reply;
        // Checked on every turn: a module that keeps talking without the markers ends too.
        if (pell::GetTickCount() - begin > timeoutMs || bytes.size() > kMaxReplyBytes)
            PELL_THROW_WIN(XString(ids::BtModuleCommand).arg(command.trimmed()),
                           pell::ERROR_TIMEOUT);
        const std::size_t waiting = port.BytesWaiting();
        if (waiting == 0) {
            pell::Sleep(1);
            // No user input: only what delivers bytes (a receiver in this process, a pty).
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            continue;
        }
        bytes += port.Read(waiting);
    }
}

std::optional<QString> CBluetoothModuleLink::FrameReply(const QByteArray& bytes,
                                                        const QByteArray& start,
                                                        const QByteArray& end) {
    qsizetype from = 0;
    if (!start.isEmpty()) {
        const qsizetype at = bytes.indexOf(start);
        if (at < 0)
            return std::nullopt;
        from = at + start.size();
    }
    qsizetype to = bytes.size();
    if (!end.isEmpty()) {
        to = bytes.indexOf(end, from);
        if (to < 0)
            return std::nullopt;
    }
    return QString::fromUtf8(bytes.mid(from, to - from));
}

bool CBluetoothModuleLink::IsOn(const QString& reply) {
    return reply.compare(QLatin1String("ON"), Qt::CaseInsensitive) == 0;
}

QString CBluetoothModuleLink::Pin(const QString& reply) {
    return reply.compare(QLatin1String("NoPinSet"), Qt::CaseInsensitive) == 0 ? QString() : reply;
}

QString CBluetoothModuleLink::Command(const QString& command) {
    return Transaction(command, kLine, kLine);
}

void CBluetoothModuleLink::Set(const char* name, const QString& value) {
    if (!pell::passthrough::FitsOneArgument(value, false))
        PELL_THROW_WIN(XString(ids::BtUnsafeText).arg(value), pell::ERROR_INVALID_PARAMETER);
    Command(QStringLiteral("set,%1,%2\r\n").arg(QLatin1String(name), value));
}

CBluetoothDlg::CBluetoothDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CPellDialog(receiver, parent), m_link(receiver), m_identification(new QLineEdit),
      m_name(new QLineEdit), m_pin(new QLineEdit),
      m_authentication(new QCheckBox(XString(ids::BtAuthentication))),
      m_encryption(new QCheckBox(XString(ids::BtEncryption))) {
    setObjectName(QStringLiteral("Bluetooth"));
    setWindowTitle(XString(ids::BtDialogTitle));
    m_identification->setObjectName(QStringLiteral("identification"));
    pell::ShowReadOnly(m_identification);
    m_name->setObjectName(QStringLiteral("name"));
    m_pin->setObjectName(QStringLiteral("pin"));
    m_authentication->setObjectName(QStringLiteral("authentication"));
    m_encryption->setObjectName(QStringLiteral("encryption"));
    // Line breaks would end the module's command early: they cannot be typed or pasted.
    const QRegularExpression oneLine(QStringLiteral("[^\\x00-\\x1f\\x7f]*"));
    m_name->setValidator(new QRegularExpressionValidator(oneLine, m_name));
    m_pin->setValidator(new QRegularExpressionValidator(oneLine, m_pin));
    const int width = m_name->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 28;
    for (QLineEdit* edit : {m_identification, m_name, m_pin})
        edit->setMinimumWidth(width);

    auto* layout = new QVBoxLayout(this);
    auto* identity = new QFormLayout;
    identity->addRow(XString(ids::BtIdentification) + QLatin1Char(':'), m_identification);
    layout->addLayout(identity);
    auto* group = new QGroupBox(XString(ids::BtParameters));
    auto* form = new QFormLayout(group);
    form->addRow(XString(ids::BtName), m_name);
    form->addRow(XString(ids::BtPin), m_pin);
    form->addRow(m_authentication);
    form->addRow(m_encryption);
    layout->addWidget(group);
    layout->addStretch();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &CBluetoothDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CBluetoothDlg::reject);
    layout->addWidget(buttons);
}

CBluetoothDlg::~CBluetoothDlg() = default;

void CBluetoothDlg::Prepare() {
    m_link.SetUp();
}

void CBluetoothDlg::OnInitDialog() {
    CPellDialog::OnInitDialog();
    const QString identification =
        m_link.Transaction(QStringLiteral("ati\r\n"), kLine, QStringLiteral("\r\n\n"));
    const QString name = m_link.Command(QStringLiteral("print,btname\r\n"));
    const QString pin =
        CBluetoothModuleLink::Pin(m_link.Command(QStringLiteral("print,btpin\r\n")));
    const bool authentication =
        CBluetoothModuleLink::IsOn(m_link.Command(QStringLiteral("print,btauthentic\r\n")));
    const bool encryption =
        CBluetoothModuleLink::IsOn(m_link.Command(QStringLiteral("print,btencrypt\r\n")));
    m_identification->setText(identification);
    m_name->setText(name);
    m_pin->setText(pin);
    m_authentication->setChecked(authentication);
    m_encryption->setChecked(encryption);
}

void CBluetoothDlg::OnConnectionLost() {
    g_PellLibApp.MessageBox(this, XString(ids::BluetoothDisconnected),
                            pell::MB_OK | pell::MB_ICONERROR);
    CPellDialog::OnConnectionLost();
}

void CBluetoothDlg::accept() {
    const QString name = m_name->text();
    if (name.isEmpty()) {
        g_PellLibApp.MessageBox(this, XString(ids::WrongName), pell::MB_OK | pell::MB_ICONERROR);
        return;
    }
    const bool written = RunUserAction([&] {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const auto restoreCursor = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
        m_link.Set("btname", name);
        m_link.Set("btpin", m_pin->text());
        m_link.Set("btauthentic", OnOff(m_authentication->isChecked()));
        m_link.Set("btencrypt", OnOff(m_encryption->isChecked()));
    });
    if (written)
        EndDialog(pell::IDOK);
}

int run_BluetoothDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    int result = pell::IDCANCEL;
    pell::RunAndReport(parent, [&] {
        const CBluetoothDeviceType device =
            CBluetoothDeviceType::Detect(CVexReceiverMate(receiver).Model());
        switch (device.type) {
        case CBluetoothDeviceType::Classic: {
            CPellWindow<CBluetoothDlg> dialog(std::move(receiver), parent);
            dialog.Prepare();
            result = dialog.exec();
            break;
        }
        case CBluetoothDeviceType::Smart:
            result = run_BluetoothSmartPS(std::move(receiver), parent, nullptr);
            break;
        case CBluetoothDeviceType::Unknown:
            g_PellLibApp.MessageBox(parent, device.error, pell::MB_OK | pell::MB_ICONERROR);
            break;
        }
    });
    return result;
}
