#include "hosts/viewer/StartPage.h"

#include "panels/Pictures.h"
#include "platform/QtText.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr int contentWidth = 560;

QLabel* Line(const QString& text)
{
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}
} // namespace

StartPage::StartPage(QAction* open)
    : problem(Line(QString())), recentTitle(Line(QStringLiteral("最近開いた納品データ"))),
      recent(new QVBoxLayout)
{
    auto* content = new QWidget;
    content->setMaximumWidth(contentWidth);
    auto* column = new QVBoxLayout(content);
    column->setSpacing(12);
    problem->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    problem->setStyleSheet(
        QStringLiteral("QLabel { background: #fdecea; color: #7a1f16; border: 1px "
                       "solid #e6b3ad; border-radius: 4px; padding: 10px; }"));
    problem->setObjectName(QStringLiteral("problem"));
    problem->hide();
    column->addWidget(problem);
    column->addWidget(Line(QStringLiteral("工事写真の電子納品データを開いてください。PHOTO.XML "
                                          "のあるフォルダ、またはその上のフォルダを"
                                          "選ぶか、このウィンドウにドロップします。納品データのファ"
                                          "イルが書き換えられることはありません。")));
    auto* button = new QPushButton(PictureIcon("open"), QStringLiteral("納品データを開く..."));
    button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    connect(button, &QPushButton::clicked, open, &QAction::trigger);
    column->addWidget(button);
    column->addSpacing(16);
    recentTitle->hide();
    column->addWidget(recentTitle);
    recent->setSpacing(2);
    column->addLayout(recent);

    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(content, 1);
    row->addStretch();
    auto* page = new QVBoxLayout(this);
    page->addStretch();
    page->addLayout(row);
    page->addStretch(2);
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
    for (const CString& folder : folders) {
        const QString path = QtText(folder);
        auto* button =
            new QPushButton(fontMetrics().elidedText(path, Qt::ElideMiddle, contentWidth - 60));
        button->setFlat(true);
        button->setToolTip(path);
        button->setAccessibleName(path);
        button->setStyleSheet(QStringLiteral("text-align: left; padding: 4px;"));
        connect(button, &QPushButton::clicked, this, [this, path] { emit DeliveryChosen(path); });
        recent->addWidget(button);
    }
}
