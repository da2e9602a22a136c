#include "windows/setup/SetUpCheckPage.h"

#include "imagefacts/ImageTypeChoice.h"
#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"
#include "windows/setup/ToviSelectImageTypeDlg.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr int idCheck = 1050;
constexpr int idSelect = 1147;
} // namespace

SetUpCheckPage::SetUpCheckPage()
    : check(new QCheckBox(QStringLiteral("画像加工検知を行う"))),
      select(new QPushButton(QStringLiteral("タイプの選択"))), chosen(new QLabel)
{
    SetWindowId(check, idCheck);
    SetWindowId(select, idSelect);
    select->setAutoDefault(false);
    chosen->setTextFormat(Qt::PlainText);
    chosen->setWordWrap(true);
    auto* const box = new QGroupBox(QStringLiteral("画像加工検知"));
    auto* const column = new QVBoxLayout(box);
    column->addWidget(check);
    column->addWidget(chosen);
    column->addWidget(select, 0, Qt::AlignLeft);
    auto* const page = new QVBoxLayout(this);
    page->addWidget(box);
    page->addStretch(1);
    connect(check, &QCheckBox::toggled, select, &QWidget::setEnabled);
    connect(check, &QCheckBox::toggled, chosen, &QWidget::setEnabled);
    connect(select, &QPushButton::clicked, this, &SetUpCheckPage::OnBtnClickSelectType);
}

void SetUpCheckPage::Show(const ToviPhotoCtrlVisualSetting& setting)
{
    types = setting.GetEditCheckTypes();
    check->setChecked(setting.GetDoEditCheck());
    select->setEnabled(check->isChecked());
    chosen->setEnabled(check->isChecked());
    ShowTypes();
}

void SetUpCheckPage::Take(ToviPhotoCtrlVisualSetting& setting) const
{
    setting.SetDoEditCheck(check->isChecked());
    setting.SetEditCheckTypes(types);
}

void SetUpCheckPage::OnBtnClickSelectType()
{
    ToviSelectImageTypeDlg dialog(window());
    dialog.SetTypes(ParseEditCheckTypes(types));
    if (!dialog.DoModal()) return;
    types = EditCheckTypesText(dialog.GetTypes());
    ShowTypes();
}

void SetUpCheckPage::ShowTypes()
{
    QStringList names;
    for (const unsigned short type : ParseEditCheckTypes(types)) {
        const CString name = ToviImageCheckCommon::QueryCameraName(
            static_cast<ToviImageCheckCommon::CameraType>(type));
        if (!name.empty()) names << QtText(name);
    }
    chosen->setText(QStringLiteral("タイプ： ") + names.join(QStringLiteral("、")));
}
