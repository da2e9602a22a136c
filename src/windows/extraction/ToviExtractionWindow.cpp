#include "windows/extraction/ToviExtractionWindow.h"

#include "items/ToviItemDef.h"
#include "platform/controls/ScrolledPage.h"
#include "platform/controls/WindowId.h"
#include "platform/host/HostServices.h"
#include "platform/pictures/QtColor.h"
#include "platform/text/QtText.h"
#include "reports/PhotoOutput.h"
#include "windows/extraction/ExtractionRules.h"
#include "windows/extraction/ToviExtDetailDlg.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace
{
constexpr int idDetails = 1014;
constexpr int idExecute = 1015;
constexpr int idFirstCheck = 1016;
constexpr int idOutput = 1132;
constexpr unsigned long background = 0xF0E7D9;
constexpr std::size_t keyPhotoCheck = 0;
static_assert(std::size(simpleConditions) == std::tuple_size_v<std::array<QCheckBox*, 5>>);

QPushButton* MakeButton(const QString& text, int id)
{
    auto* const button = new QPushButton(text);
    SetWindowId(button, id);
    button->setAutoDefault(false);
    return button;
}
} // namespace

ToviExtractionWindow::ToviExtractionWindow()
    : checks(), detailsButton(MakeButton(QStringLiteral("詳細設定..."), idDetails)),
      details(new QLabel),
      ofLabelHint(new QLabel(
          QStringLiteral("付箋の写真は抽出できません。抽出するには「分類」を表示してください。"))),
      executeButton(MakeButton(QStringLiteral("抽出実行"), idExecute)),
      outputButton(MakeButton(QStringLiteral("表示写真を保存"), idOutput))
{
    // Made from the one colour, so that all is readable on it under a dark palette, too.
    setPalette(QPalette(QtColor(background)));
    setAutoFillBackground(true);
    auto* const settings = new QWidget;
    auto* const column = new QVBoxLayout(settings);
    for (std::size_t i = 0; i < checks.size(); ++i) {
        checks[i] = new QCheckBox(QString::fromUtf8(simpleConditions[i].text));
        SetWindowId(checks[i], idFirstCheck + static_cast<int>(i));
        connect(checks[i], &QCheckBox::clicked, this, &ToviExtractionWindow::CheckExecutionEnable);
        column->addWidget(checks[i]);
    }
    details->setTextFormat(Qt::PlainText);
    for (QLabel* label : {details, ofLabelHint}) label->setWordWrap(true);
    ofLabelHint->setContentsMargins(8, 8, 8, 0);
    executeButton->setCheckable(true);
    column->addWidget(detailsButton);
    column->addWidget(details);
    column->addStretch(1);
    auto* const buttons = new QVBoxLayout;
    buttons->setContentsMargins(column->contentsMargins());
    buttons->addWidget(executeButton);
    buttons->addWidget(outputButton);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins({});
    all->setSpacing(0);
    all->addWidget(ofLabelHint);
    all->addWidget(new ScrolledPage(settings), 1);
    all->addLayout(buttons);
    connect(detailsButton, &QPushButton::clicked, this, &ToviExtractionWindow::OnBnClickedDetails);
    connect(executeButton, &QPushButton::clicked, this, &ToviExtractionWindow::OnBnClickedExecute);
    connect(outputButton, &QPushButton::clicked, this,
            &ToviExtractionWindow::OnBnClickedOutputAllPhoto);
    ShowState();
}

void ToviExtractionWindow::OnPostAttachData()
{
    if (GetData() != nullptr) GetData()->SetExtractionData(this);
    initialize();
}

void ToviExtractionWindow::OnPreDetachData()
{
    GetData()->CancelExtraction(CancelExtReset);
    GetData()->SetExtractionData(nullptr);
}

void ToviExtractionWindow::OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object)
{
    ToviPanel::OnUpdate(sender, hint, object);
    UpdateOutputAllPhotoButton();
}

void ToviExtractionWindow::initialize()
{
    conditions = {};
    for (QCheckBox* check : checks) check->setChecked(false);
    ShowState();
}

void ToviExtractionWindow::CancelExtraction(CancelExt value)
{
    running = false;
    if (value == CancelExtReset) {
        GetData()->SetExtractionData(nullptr);
        initialize();
    }
    ShowState();
    emit StateChanged();
}

void ToviExtractionWindow::EnableExtractCtrl(bool enable)
{
    canExtract = enable;
    ShowState();
}

void ToviExtractionWindow::UpdateOutputAllPhotoButton()
{
    outputButton->setEnabled(GetData() != nullptr && !GetData()->IsPhotoArrayEmpty());
}

void ToviExtractionWindow::FocusConditions()
{
    const auto first = std::ranges::find_if(checks, &QWidget::isEnabled);
    if (first != checks.end()) (*first)->setFocus(Qt::ShortcutFocusReason);
}

void ToviExtractionWindow::ReadChecks()
{
    for (std::size_t i = 0; i < checks.size(); ++i) {
        conditions.*simpleConditions[i].on = checks[i]->isChecked();
    }
}

/// Shows what is enabled, and whether extraction is on.
void ToviExtractionWindow::ShowState()
{
    const bool enabled = canExtract && GetData() != nullptr;
    for (QCheckBox* check : checks) check->setEnabled(enabled);
    checks[keyPhotoCheck]->setEnabled(enabled && GetData()->GetItemDef()->HasKeyPhoto());
    detailsButton->setEnabled(enabled);
    ofLabelHint->setVisible(!canExtract && GetData() != nullptr);
    details->setText(QtText(DetailConditionsText(conditions)));
    details->setVisible(!details->text().isEmpty());
    executeButton->setEnabled(enabled && HasCondition(conditions));
    executeButton->setText(running ? QStringLiteral("抽出実行中") : QStringLiteral("抽出実行"));
    executeButton->setChecked(running);
    UpdateOutputAllPhotoButton();
}

void ToviExtractionWindow::CheckExecutionEnable()
{
    if (GetData() == nullptr) return;
    ReadChecks();
    switch (ChangeTo(conditions, running)) {
    case ConditionsChange::End:
        running = false;
        GetData()->CancelExtraction();
        break;
    case ConditionsChange::RunAnew:
        GetData()->ExecExtraction();
        break;
    case ConditionsChange::CanRun:
    case ConditionsChange::CannotRun:
        break;
    }
    ShowState();
    emit StateChanged();
}

void ToviExtractionWindow::OnBnClickedExecute()
{
    if (GetData() == nullptr) return;
    ReadChecks();
    running = !running;
    ShowState();
    if (running) {
        GetData()->ExecExtraction();
    } else {
        GetData()->CancelExtraction();
    }
    // The user may have cancelled the run.
    ShowState();
    emit StateChanged();
    if (!running || GetData() == nullptr || !GetData()->IsPhotoArrayEmpty()) return;
    const HostServices& host = GetHostServices();
    host.userInterface->ShowMessage("この条件で抽出される写真は1枚もありませんでした。",
                                    host.applicationName, MessageButtons::Ok,
                                    MessageIcon::Information);
}

void ToviExtractionWindow::Resume(const ExtractionConditions& newConditions, bool runs)
{
    if (GetData() == nullptr) return;
    conditions = newConditions;
    for (std::size_t i = 0; i < checks.size(); ++i) {
        checks[i]->setChecked(conditions.*simpleConditions[i].on);
    }
    running = runs && HasCondition(conditions);
    if (running) GetData()->ExecExtraction();
    ShowState();
    emit StateChanged();
}

void ToviExtractionWindow::OnBnClickedDetails()
{
    if (GetData() == nullptr) return;
    ToviExtDetailDlg dialog(*GetData(), conditions, window());
    if (!dialog.DoModal()) return;
    conditions = dialog.GetConditions();
    CheckExecutionEnable();
}

void ToviExtractionWindow::OnBnClickedOutputAllPhoto()
{
    if (GetData() != nullptr) OutputShownPhotos(*GetData());
}
