#include "links/BluetoothSmartPS.h"

#include "lib/Common.h"
#include "lib/Drawing.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "lib/Tick.h"
#include "lib/TipWindow.h"
#include "receiver/VexCommands.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScopeGuard>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

namespace ids = pell::ids;

constexpr unsigned kRestartMs = 3000;

// What the module takes: a name of 1 to 32 characters without quotes or control characters, a
// PIN of up to 16 digits. Quotes and line breaks cannot even be typed.
QValidator* NameValidator(QObject* parent) {
    return new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[^\"\\x00-\\x1f\\x7f]{0,32}")), parent);
}

QValidator* PinValidator(QObject* parent) {
    return new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,16}")),
                                           parent);
}

const QString* Find(const CBluetoothSmartEngine::Pairs& pairs, const char* key) {
    for (const auto& [name, value] : pairs)
        if (name == QLatin1String(key))
            return &value;
    return nullptr;
}

} // namespace

CBluetoothSmartGeneralPP::CBluetoothSmartGeneralPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                   CBluetoothSmartEngine& engine,
                                                   CBluetoothSmartIdentity identity,
                                                   QWidget* parent)
    : CPellPropertyPage(std::move(receiver), XString(ids::BleGeneralPage), parent),
      m_engine(engine), m_identity(std::move(identity)), m_name{new QLabel(XString(ids::BtName)),
                                                                new QLineEdit,
                                                                false,
                                                                {}},
      m_pin{new QLabel(XString(ids::BtPin)), new QLineEdit, false, {}},
      m_address{new QLabel(XString(ids::BleAddress)), new QLineEdit, false, {}},
      m_radio(new QCheckBox(XString(ids::BleRadio))), m_keepAlive(new QTimer(this)) {
    setObjectName(QStringLiteral("BluetoothSmartGeneral"));
    m_name.edit->setObjectName(QStringLiteral("name"));
    m_name.edit->setValidator(NameValidator(m_name.edit));
    m_name.edit->setMaxLength(32);
    m_pin.edit->setObjectName(QStringLiteral("pin"));
    m_pin.edit->setValidator(PinValidator(m_pin.edit));
    m_pin.edit->setToolTip(XString(ids::BlePinHint));
    m_address.edit->setObjectName(QStringLiteral("address"));
    pell::ShowReadOnly(m_address.edit);
    m_radio->setObjectName(QStringLiteral("radio"));
    const int width = m_name.edit->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 24;
    for (QLineEdit* edit : {m_name.edit, m_pin.edit, m_address.edit})
        edit->setMinimumWidth(width);

    auto* page = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->setLabelAlignment(Qt::AlignLeft);
    form->addRow(m_name.label, m_name.edit);
    form->addRow(m_pin.label, m_pin.edit);
    auto* hint = new QLabel(XString(ids::BlePinHint));
    hint->setWordWrap(true);
    hint->setEnabled(false);
    form->addRow(QString(), hint);
    form->addRow(m_address.label, m_address.edit);
    page->addLayout(form);
    page->addWidget(m_radio);
    // Beside what it resets, not at the far end of the page.
    auto* reset = new QPushButton(XString(ids::BleFactoryReset));
    reset->setObjectName(QStringLiteral("factoryReset"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(reset);
    buttons->addStretch();
    page->addSpacing(reset->sizeHint().height() / 2);
    page->addLayout(buttons);
    page->addStretch();

    for (QLineEdit* edit : {m_name.edit, m_pin.edit})
        connect(edit, &QLineEdit::textEdited, this, [this] { SetModified(); });
    connect(m_radio, &QCheckBox::toggled, this, [this] { SetModified(); });
    connect(reset, &QPushButton::clicked, this,
            [this] { RunUserAction([this] { FactoryReset(); }); });
    m_keepAlive->setObjectName(QStringLiteral("keepAlive"));
    m_keepAlive->setInterval(kKeepAliveMs);
    connect(m_keepAlive, &QTimer::timeout, this, &CBluetoothSmartGeneralPP::KeepAlive);
}

void CBluetoothSmartGeneralPP::OnInitDialog() {
    CPellPropertyPage::OnInitDialog();
    ReadSettings();
    m_keepAlive->start();
}

void CBluetoothSmartGeneralPP::KeepAlive() {
    // Skipped while a command of the page is still waiting for its answer, and while the module
    // is not reachable (a factory reset restarting it, the sheet closing).
    if (m_engine.IsOpen() && !m_engine.IsBusy())
        RunUserAction([this] { m_engine.Probe(false); });
}

void CBluetoothSmartGeneralPP::ReadSettings() {
    CBluetoothSmartEngine::Pairs pairs;
    m_engine.ReadSettings(pairs);
    const QSignalBlocker blockRadio(m_radio);
    for (auto [field, key] :
         {std::pair{&m_name, "FNAME"}, std::pair{&m_pin, "PIN"}, std::pair{&m_address, "ADDR"}}) {
        const QString* value = Find(pairs, key);
        field->present = value != nullptr;
        field->value = value ? *value : QString();
        field->edit->setText(field->value);
        field->edit->setEnabled(field->present);
        field->label->setEnabled(field->present);
    }
    const QString* radio = Find(pairs, "RADIO");
    m_radioPresent = radio != nullptr;
    m_radioValue = radio && radio->compare(QLatin1String("on"), Qt::CaseInsensitive) == 0;
    m_radio->setChecked(m_radioValue);
    m_radio->setEnabled(m_radioPresent);
    m_read = true;
    SetModified(false);
}

bool CBluetoothSmartGeneralPP::OnApply() {
    if (!m_read)
        return true;
    if (m_name.present && m_name.edit->isEnabled() && m_name.edit->text() != m_name.value) {
        m_engine.SetFriendlyName(m_name.edit->text());
        m_name.value = m_name.edit->text();
    }
    if (m_pin.present && m_pin.edit->isEnabled() && m_pin.edit->text() != m_pin.value) {
        const QString pin = CBluetoothSmartEngine::PadPin(m_pin.edit->text());
        m_engine.SetPin(pin);
        m_pin.value = pin;
        m_pin.edit->setText(pin);
    }
    if (m_radioPresent && m_radio->isEnabled() && m_radio->isChecked() != m_radioValue) {
        m_engine.SetRadio(m_radio->isChecked());
        m_radioValue = m_radio->isChecked();
    }
    return true;
}

void CBluetoothSmartGeneralPP::FactoryReset() {
    if (g_PellLibApp.MessageBox(this, XString(ids::BleFactoryResetConfirm),
                                pell::MB_YESNO | pell::MB_ICONWARNING | pell::MB_DEFBUTTON2) !=
        pell::IDYES)
        return;
    // Nothing else may reach the module while it restarts: the keep-alive waits, the sheet takes
    // no clicks.
    m_keepAlive->stop();
    QWidget* sheet = window();
    sheet->setEnabled(false);
    const auto resume = qScopeGuard([this, sheet] {
        sheet->setEnabled(true);
        if (m_engine.IsOpen())
            m_keepAlive->start();
    });
    try {
        {
            const CScopedTip tip(this, XString(ids::BleInitializing));
            m_engine.BootInit();
            pell::PumpingSleep(kRestartMs);
        }
        {
            const CScopedTip tip(this, XString(ids::BleDetecting));
            m_engine.Open();
        }
        const CBluetoothSmartEngine::AdvertisingRecord record =
            CBluetoothSmartEngine::MakeAdvertisingRecord(m_identity);
        m_engine.SetFriendlyName(CBluetoothSmartEngine::MakeFriendlyName(m_identity));
        m_engine.SetVendorId(m_identity.vendor);
        m_engine.SetModelId(m_identity.model);
        m_engine.SetSerialNumber(m_identity.serialNumber);
        m_engine.SetHardwareVersion(m_identity.hardwareVersion);
        m_engine.SetPersistentData(record.data(), record.size());
        m_engine.SetRadio(true);
        ReadSettings();
    } catch (const ulm_std::CException& error) {
        // The module is in an unknown state: nothing on the sheet is valid any more.
        error.ReportError(this);
        EndWindow(pell::IDCANCEL);
    }
}

CBluetoothSmartAtiPP::CBluetoothSmartAtiPP(std::shared_ptr<rxio::IReceiver> receiver,
                                           CBluetoothSmartEngine& engine, QWidget* parent)
    : CPellPropertyPage(std::move(receiver), XString(ids::BleInformationPage), parent),
      m_engine(engine), m_list(new QTreeWidget) {
    setObjectName(QStringLiteral("BluetoothSmartAti"));
    m_list->setObjectName(QStringLiteral("information"));
    m_list->setRootIsDecorated(false);
    m_list->setColumnCount(2);
    m_list->setHeaderLabels({XString(ids::BleProperty), XString(ids::BleValue)});
    const int width = static_cast<int>(100 * pell::GetScaleFactor());
    m_list->setColumnWidth(0, width);
    m_list->setColumnWidth(1, width);
    auto* page = new QVBoxLayout(this);
    page->addWidget(m_list);
}

void CBluetoothSmartAtiPP::OnSetActive() {
    CPellPropertyPage::OnSetActive();
    m_list->clear();
    CBluetoothSmartEngine::Pairs pairs;
    RunUserAction([&] { m_engine.ReadInformation(pairs); });
    for (const auto& [name, value] : pairs)
        m_list->addTopLevelItem(new QTreeWidgetItem(QStringList{name, value}));
    m_list->resizeColumnToContents(0);
    m_list->resizeColumnToContents(1);
}

CBluetoothSmartPS::CBluetoothSmartPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CPellPropertySheet(receiver, XString(ids::BleSheetTitle), parent),
      m_engine(std::make_unique<CBluetoothSmartEngine>(std::move(receiver))) {}

CBluetoothSmartPS::~CBluetoothSmartPS() = default;

void CBluetoothSmartPS::Prepare() {
    if (m_engine->GetModulePort() == 0)
        PELL_THROW_WIN(XString(ids::BleSheetTitle), pell::ERROR_NOT_FOUND);
    CBluetoothSmartIdentity identity =
        CBluetoothSmartIdentity::Read(CVexReceiverMate(GetReceiver()));
    const CScopedTip tip(parentWidget(), XString(ids::BleDetecting));
    m_engine->Open();
    AddPage(new CBluetoothSmartGeneralPP(GetReceiver(), *m_engine, std::move(identity)));
    AddPage(new CBluetoothSmartAtiPP(GetReceiver(), *m_engine));
}

int run_BluetoothSmartPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent,
                         void (*callback)()) {
    const CPellModuleState state;
    int result = pell::IDCANCEL;
    pell::RunAndReport(parent, [&] {
        CPellWindow<CBluetoothSmartPS> sheet(std::move(receiver), parent);
        sheet.Prepare();
        result = sheet.exec();
        sheet.Engine().Close();
    });
    if (callback)
        callback();
    return result;
}
