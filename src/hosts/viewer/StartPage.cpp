#include "hosts/viewer/StartPage.h"

#include "hosts/viewer/FrameState.h"
#include "hosts/viewer/RecentFacts.h"
#include "hosts/viewer/SampleDelivery.h"
#include "platform/controls/ToolTipText.h"
#include "platform/text/QtText.h"
#include "windows/pictures/Pictures.h"

#include <QAction>
#include <QCheckBox>
#include <QCommandLinkButton>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace
{
constexpr int contentWidth = 560;
constexpr int buttonHeight = 40;
constexpr int headPicture = 48;
constexpr QSize pictureSize(80, 60);

QLabel* Line(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// The program's picture and name.
QLayout* MakeHead()
{
    auto* picture = new QLabel;
    picture->setPixmap(PictureIcon("tovi-viewer").pixmap(headPicture));
    auto* name = new QLabel(QStringLiteral("Tovi"));
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    name->setFont(font);
    auto* head = new QHBoxLayout;
    head->setSpacing(12);
    head->addWidget(picture);
    head->addWidget(name, 1);
    return head;
}
} // namespace

StartPage::StartPage(QAction* open)
    : problem(Line(QString())), recentTitle(Line(QStringLiteral("最近開いた納品データ"))),
      recent(new QVBoxLayout),
      opensLast(
          new QCheckBox(QStringLiteral("起動したとき、前回の終了時に開いていた納品データを開く")))
{
    auto* content = new QWidget;
    content->setMaximumWidth(contentWidth);
    auto* column = new QVBoxLayout(content);
    column->setSpacing(12);
    column->addLayout(MakeHead());
    problem->setObjectName(QStringLiteral("problem"));
    problem->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    problem->setStyleSheet(
        QStringLiteral("QLabel { background: #fdecea; color: #7a1f16; border: 1px "
                       "solid #e6b3ad; border-radius: 4px; padding: 10px; }"));
    problem->hide();
    column->addWidget(problem);
    column->addWidget(Line(QStringLiteral(
        "工事写真の電子納品データを開いてください。PHOTO.XML のあるフォルダ、またはその上の"
        "フォルダを選ぶか、このウィンドウにドロップします。"
        "納品データのファイルが書き換えられることはありません。")));
    auto* button = new QPushButton(PictureIcon("open"), QStringLiteral("納品データを開く..."));
    button->setIconSize({24, 24});
    button->setMinimumHeight(buttonHeight);
    button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    connect(button, &QPushButton::clicked, open, &QAction::trigger);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(button);
    if (SampleDelivery::CanBeMade()) {
        auto* const sample = new QPushButton(QStringLiteral("見本で試す"));
        sample->setMinimumHeight(buttonHeight);
        sample->setToolTip(QStringLiteral("見本の納品データを作って開きます。"));
        connect(sample, &QPushButton::clicked, this, &StartPage::SampleRequested);
        buttons->addWidget(sample);
    }
    buttons->addStretch(1);
    column->addLayout(buttons);
    column->addSpacing(16);
    recentTitle->hide();
    column->addWidget(recentTitle);
    recent->setSpacing(2);
    column->addLayout(recent);
    opensLast->hide();
    connect(opensLast, &QCheckBox::clicked, this, &FrameState::SetOpensLast);
    column->addWidget(opensLast);
    column->addStretch();

    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(24, 48, 24, 24);
    row->addStretch();
    row->addWidget(content, 1);
    row->addStretch();
    // In a small window the sentences stay whole.
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(page);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(area);
}

void StartPage::ShowProblem(const CString& sentence)
{
    problem->setText(QtText(sentence));
    problem->setVisible(!sentence.empty());
}

void StartPage::ShowRecent(const CStringArray& folders)
{
    while (QLayoutItem* item = recent->takeAt(0)) {
        item->widget()->deleteLater();
        delete item;
    }
    recentTitle->setVisible(!folders.IsEmpty());
    opensLast->setVisible(!folders.IsEmpty());
    opensLast->setChecked(FrameState::OpensLast());
    for (const CString& folder : folders) recent->addWidget(MakeRecent(folder));
}

QPushButton* StartPage::MakeRecent(const CString& folder)
{
    const QString path = QtText(folder);
    const RecentFacts facts = ReadRecentFacts(folder);
    const QString shown = fontMetrics().elidedText(path, Qt::ElideMiddle, contentWidth - 160);
    QString title = facts.title.isEmpty() ? shown : facts.title;
    auto* const button =
        new QCommandLinkButton(title.replace(QLatin1Char('&'), QStringLiteral("&&")));
    const QString rest = RecentText(facts);
    if (!rest.isEmpty()) button->setDescription(shown + QLatin1Char('\n') + rest);
    button->setIcon(facts.picture.isNull() ? PictureIcon("open")
                                           : QIcon(QPixmap::fromImage(facts.picture)));
    button->setIconSize(pictureSize);
    button->setToolTip(ToolTipText(folder));
    button->setAccessibleName(path);
    button->setAccessibleDescription(facts.title + QLatin1Char(' ') + rest);
    connect(button, &QPushButton::clicked, this, [this, path] { emit DeliveryChosen(path); });
    return button;
}
