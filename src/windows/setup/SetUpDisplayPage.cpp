#include "windows/setup/SetUpDisplayPage.h"

#include "platform/controls/Radios.h"
#include "platform/controls/WindowId.h"
#include "windows/pictures/Pictures.h"
#include "windows/setup/SetUpRules.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;

constexpr int idModePreview = 1087;
constexpr int idInfoPreview = 1088;
constexpr PictureName modePictures[] = {"mode-1", "mode-2",          "mode-3",   "mode-4",
                                        "mode-6", "mode-thumbnails", "mode-list"};
constexpr PictureName infoPictures[] = {"preview-info-hidden", "preview-info-shown"};
constexpr QSize modePreviewSize(96, 96);
constexpr QSize infoPreviewSize(96, 72);

QLabel* MakePreview(int id, const QSize& size)
{
    auto* const preview = new QLabel;
    SetWindowId(preview, id);
    preview->setFixedSize(size);
    return preview;
}

/// A group with a column of radio buttons.
QGroupBox* MakeChoice(const QString& title, QButtonGroup*& group,
                      std::initializer_list<Radio> radios)
{
    auto* const box = new QGroupBox(title);
    auto* const column = new QVBoxLayout(box);
    group = AddRadios(box, column, radios);
    column->addStretch(1);
    return box;
}
} // namespace

SetUpDisplayPage::SetUpDisplayPage()
    : modePreview(MakePreview(idModePreview, modePreviewSize)),
      infoPreview(MakePreview(idInfoPreview, infoPreviewSize))
{
    auto* const grid = new QGridLayout(this);
    grid->addWidget(MakeModes(), 0, 0, 2, 1);
    grid->addWidget(MakeInfoList(), 0, 1);
    grid->addWidget(
        MakeChoice(QStringLiteral("コメント表示"), comments, {{1130, "非表示"}, {1131, "表示"}}), 1,
        1);
    grid->addWidget(
        MakeChoice(
            QStringLiteral("写真タイトル表示"), titles,
            {{1081, "写真ファイル名"}, {1082, "写真ファイル日本語名"}, {1084, "写真タイトル"}}),
        2, 0, 1, 2);
    grid->setRowStretch(3, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    connect(modes, &QButtonGroup::idToggled, this, &SetUpDisplayPage::OnViewTypeChange);
    connect(infoList, &QButtonGroup::idToggled, this, &SetUpDisplayPage::OnShowPhotoInfoList);
}

QWidget* SetUpDisplayPage::MakeModes()
{
    auto* const box = new QGroupBox(QStringLiteral("写真表示数"));
    auto* const row = new QHBoxLayout(box);
    auto* const column = new QVBoxLayout;
    modes = AddRadios(box, column,
                      {{1074, "1枚表示"},
                       {1075, "2枚表示"},
                       {1076, "3枚表示"},
                       {1077, "4枚表示"},
                       {1078, "6枚表示"},
                       {1079, "サムネイル表示"},
                       {1080, "リスト表示"}});
    column->addStretch(1);
    row->addLayout(column);
    row->addStretch(1);
    row->addWidget(modePreview, 0, Qt::AlignCenter);
    row->addStretch(1);
    return box;
}

QWidget* SetUpDisplayPage::MakeInfoList()
{
    auto* const box = new QGroupBox(QStringLiteral("写真情報リスト表示"));
    auto* const row = new QHBoxLayout(box);
    auto* const column = new QVBoxLayout;
    infoList = AddRadios(box, column, {{1085, "非表示"}, {1086, "表示"}});
    column->addStretch(1);
    row->addLayout(column);
    row->addStretch(1);
    row->addWidget(infoPreview, 0, Qt::AlignCenter);
    row->addStretch(1);
    return box;
}

void SetUpDisplayPage::Show(const Setting& setting)
{
    modes->button(ModeChoice(setting.GetDivType()))->setChecked(true);
    infoList->button(setting.GetImageTextArrange() == Setting::TextBeside ? 1 : 0)
        ->setChecked(true);
    titles->button(TitleChoice(setting.GetTitleShowType()))->setChecked(true);
    comments->button(setting.GetVisibleComment() ? 1 : 0)->setChecked(true);
    OnViewTypeChange();
    OnShowPhotoInfoList();
}

void SetUpDisplayPage::Take(Setting& setting) const
{
    setting.SetDivType(ModeChoice(modes->checkedId()));
    setting.SetImageTextArrange(infoList->checkedId() != 0 ? Setting::TextBeside
                                                           : Setting::TextHidden);
    setting.SetTitleShowType(TitleChoice(titles->checkedId()));
    setting.SetVisibleComment(comments->checkedId() == 1);
}

void SetUpDisplayPage::OnViewTypeChange()
{
    const Setting::DivideType mode = ModeChoice(modes->checkedId());
    modePreview->setPixmap(PicturePixmap(modePictures[mode], modePreviewSize, devicePixelRatioF()));
    EnableRadios(*infoList, HasInfoList(mode));
}

void SetUpDisplayPage::OnShowPhotoInfoList()
{
    const PictureName picture = infoPictures[infoList->checkedId() == 1 ? 1 : 0];
    infoPreview->setPixmap(PicturePixmap(picture, infoPreviewSize, devicePixelRatioF()));
}
