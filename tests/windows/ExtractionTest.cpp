#include "support/Controls.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "support/Texts.h"
#include "windows/extraction/DetailConditions.h"
#include "windows/extraction/ExtractionRules.h"
#include "windows/extraction/ToviExtractionWindow.h"

#include "platform/text/QtText.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int details = 1014;
constexpr int execute = 1015;
constexpr int ngPhoto = 1017;
constexpr int notchecked = 1018;
constexpr int save = 1132;
constexpr const char* nothingFound = "この条件で抽出される写真は1枚もありませんでした。";

/// The extraction window over a delivery of four photographs, the first of which is NG.
struct Extraction
{
    Extraction()
    {
        window.Attach(sample.document.get());
        PasteLabel(*sample.document, 0, LabelNg1);
        sample.document->SetSelected(sample.document.get(), true);
        window.show();
    }
    ~Extraction() { window.Detach(); }

    void Click(int id) { Control<QAbstractButton>(window, id).click(); }
    QAbstractButton& Button(int id) { return Control<QAbstractButton>(window, id); }
    std::vector<int> Shown() const
    {
        const ToviPhotoRef& current = sample.document->GetCurrentArray();
        return {current.begin(), current.end()};
    }
    std::vector<CString> Messages() const { return Texts(sample.services.user.Messages()); }
    /// Opens the detail window, in which the user does \p act.
    void InDetails(std::function<void(QWidget&)> act)
    {
        QTimer::singleShot(0, &window, [act] { act(*QApplication::activeModalWidget()); });
        Click(details);
    }

    static DeliveryBuilder Delivery()
    {
        DeliveryBuilder builder({.photos = 4, .drawings = 0, .images = false});
        const char* const places[] = {"No.1", "No.2", "", "No.1"};
        for (int photo = 0; photo < 4; ++photo) {
            builder.Set(photo, "撮影箇所", places[photo])
                .Set(photo, "撮影年月日", "2023-05-0" + std::to_string(photo + 1));
        }
        return builder;
    }

    OpenedSample sample{Delivery()};
    ToviExtractionWindow window;
};

void Press(const QWidget& dialog, QDialogButtonBox::StandardButton button)
{
    dialog.findChild<QDialogButtonBox*>()->button(button)->click();
}

TEST(DetailConditions, AreCheckedInTheOrderOfTheWindow)
{
    ExtractionConditions good;
    good.itemOn = {true, false, true};
    good.itemTitle = {"撮影箇所", "", "工種"};
    good.itemText = {"No.1", "", missingValueTitle};
    good.dateOn = true;
    good.dateFrom = good.dateTo = "2023-05-01";
    EXPECT_FALSE(FaultOf(good)) << "one day is a range, and a row that is off needs no text";
    ExtractionConditions bad = good;
    bad.dateTo = "2023-04-30";
    EXPECT_EQ(FaultOf(bad)->place, DetailFault::dates);
    EXPECT_EQ(FaultOf(bad)->text, "日付の設定に誤りがあります。\n"
                                  "左側の日付は右側の日付を超えないように設定してください。");
    bad.itemText[2].clear();
    EXPECT_EQ(FaultOf(bad)->place, 2);
    EXPECT_EQ(FaultOf(bad)->text, "抽出文字列が未入力です。抽出したい内容を記入してください。");
    bad.dateOn = bad.itemOn[2] = false;
    EXPECT_FALSE(FaultOf(bad));
}

TEST(DetailConditions, ReadDaysAsFarAsTheyCanBeRead)
{
    const std::pair<const char*, std::optional<CalendarDay>> cases[] = {
        {"2023-05-09", CalendarDay{2023, 5, 9}},
        {"2023-5-9", CalendarDay{2023, 5, -9}},
        {"-05-9", CalendarDay{0, 5, -9}},
        {"2023-0509", {}},
        {"--", CalendarDay{0, 0, 0}},
        {"", {}}};
    for (const auto& [text, day] : cases) EXPECT_EQ(ParseDay(text), day) << text;
    EXPECT_EQ(DayText({2023, 5, 9}), "2023-05-09");
}

TEST(DetailConditions, OfferTheValuesThatThereAre)
{
    Extraction shown;
    ToviData& document = *shown.sample.document;
    EXPECT_THAT(Texts(DetailItemValues(document, "撮影箇所")),
                ElementsAre("No.1", "No.2", "【未記入】"));
    EXPECT_THAT(Texts(DetailItemValues(document, "撮影年月日")), testing::SizeIs(4));
    EXPECT_THAT(Texts(DetailItemValues(document, "ない項目")), IsEmpty());
    const std::vector<CString> titles = Texts(DetailItemTitles(*document.GetItemDef()));
    EXPECT_THAT(titles, testing::IsSupersetOf({"撮影箇所", "撮影年月日", "写真タイトル"}));
    EXPECT_THAT(titles, testing::Not(testing::Contains("写真情報"))) << "a group has no values";
}

TEST(ExtractionRules, TellWhatIsExtracted)
{
    ExtractionConditions conditions;
    EXPECT_EQ(ConditionsText(conditions), "");
    conditions.ngPhoto = conditions.notcheckPhoto = true;
    conditions.itemOn = {true, true, false};
    conditions.itemTitle = {"撮影箇所", "工種", "種別"};
    conditions.itemText = {"とても長い撮影箇所の名前が二十四文字よりも長いとき", missingValueTitle,
                           "off"};
    conditions.dateOn = true;
    conditions.dateFrom = "2023-01-01";
    conditions.dateTo = "2023-12-31";
    EXPECT_EQ(ConditionsText(conditions),
              "NG写真 かつ 未検査写真 かつ "
              "撮影箇所が「とても長い撮影箇所の名前が二十四文字よりも長いと…」 かつ "
              "工種が【未記入】 かつ 撮影年月日が2023-01-01～2023-12-31");
    conditions = {};
    conditions.ngPhoto = conditions.notExifinfo = true;
    conditions.orMode = 1;
    ExtractionView view{ExtractionView::Narrowed, true, false, false, 3, 120};
    EXPECT_EQ(StripText(view, conditions),
              "抽出中： NG写真 または Exif情報非保有写真（120 枚のうち 3 枚を表示）");
    EXPECT_EQ(StripText({}, conditions), "");
    view.searched = true;
    EXPECT_EQ(EndText(view), "抽出と検索を解除");
    EXPECT_EQ(NothingText(view, conditions, "舗装"),
              CString(nothingFound) + "\n\nNG写真 または Exif情報非保有写真\n「舗装」を含む");
    view.extracted = false;
    EXPECT_EQ(StripText(view, conditions), "120 枚のうち 3 枚を表示");
}

TEST(ExtractionWindow, SwitchesExtractionOnAndOff)
{
    Extraction shown;
    EXPECT_FALSE(shown.Button(execute).isEnabled());
    shown.Click(ngPhoto);
    EXPECT_EQ(shown.Shown().size(), 4u) << "not before it is switched on";
    shown.Click(execute);
    EXPECT_THAT(shown.Shown(), ElementsAre(0));
    EXPECT_EQ(shown.Button(execute).text(), QStringLiteral("抽出実行中"));
    EXPECT_TRUE(shown.Button(execute).isChecked());
    EXPECT_EQ(ViewOf(*shown.sample.document, true, false),
              (ExtractionView{ExtractionView::Narrowed, true, false, false, 1, 4}));

    shown.Click(notchecked);
    EXPECT_THAT(shown.Shown(), IsEmpty()) << "no photograph is both";
    EXPECT_FALSE(shown.Button(save).isEnabled());
    EXPECT_THAT(shown.Messages(), IsEmpty()) << "who changes a condition sees what comes of it";
    EXPECT_EQ(ViewOf(*shown.sample.document, true, false).kind, ExtractionView::Nothing);
    shown.Click(execute);
    EXPECT_EQ(shown.Shown().size(), 4u);
    shown.Click(execute);
    EXPECT_THAT(shown.Messages(), ElementsAre(nothingFound));

    shown.Click(ngPhoto);
    EXPECT_THAT(shown.Shown(), testing::UnorderedElementsAre(1, 2, 3));
    shown.Click(notchecked);
    EXPECT_EQ(shown.Shown().size(), 4u);
    EXPECT_FALSE(shown.window.IsRunning()) << "with its last condition extraction ends";
    EXPECT_FALSE(shown.Button(execute).isEnabled());
}

TEST(ExtractionWindow, IsOffAfterACancelAndForgetsAClosedDelivery)
{
    Extraction shown;
    shown.Click(ngPhoto);
    shown.Click(notchecked);
    shown.sample.services.user.cancelAtPumps = {1};
    shown.Click(execute);
    EXPECT_FALSE(shown.window.IsRunning());
    EXPECT_FALSE(shown.Button(execute).isChecked());
    EXPECT_EQ(shown.Shown().size(), 4u);
    EXPECT_THAT(shown.Messages(), IsEmpty());

    shown.Click(execute);
    EXPECT_TRUE(shown.window.IsRunning());
    ToviData* const document = shown.window.Detach();
    EXPECT_FALSE(shown.window.IsRunning());
    EXPECT_EQ(shown.window.GetConditions(), ExtractionConditions());
    for (const int id : {details, execute, ngPhoto, save}) {
        EXPECT_FALSE(shown.Button(id).isEnabled()) << id;
    }
    document->SetSelected(document, true);
    EXPECT_EQ(shown.Shown().size(), 4u);
    shown.window.Attach(document);
    EXPECT_FALSE(Control<QCheckBox>(shown.window, ngPhoto).isChecked());
}

TEST(ExtractionWindow, TakesTheDetailsOver)
{
    Extraction shown;
    shown.InDetails([](QWidget& dialog) {
        Control<QCheckBox>(dialog, 1022).click();
        auto& titles = Control<QComboBox>(dialog, 1025);
        EXPECT_EQ(titles.currentIndex(), 0);
        titles.setCurrentIndex(titles.findText(QStringLiteral("撮影箇所")));
        emit titles.activated(titles.currentIndex());
        auto& texts = Control<QComboBox>(dialog, 1028);
        EXPECT_EQ(texts.currentText(), QStringLiteral("No.1"));
        texts.setEditText(QString());
        Press(dialog, QDialogButtonBox::Ok);
        EXPECT_TRUE(dialog.isVisible()) << "a text is missing";
        texts.setEditText(QStringLiteral("どこにもない値"));
        Press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(shown.Messages().size(), 1u);
    EXPECT_TRUE(shown.Button(execute).isEnabled());
    ExtractionConditions expected;
    expected.itemOn[1] = true;
    expected.itemTitle[1] = "撮影箇所";
    expected.itemText[1] = "どこにもない値";
    EXPECT_EQ(shown.window.GetConditions(), expected);

    shown.InDetails([](QWidget& dialog) {
        auto& texts = Control<QComboBox>(dialog, 1028);
        EXPECT_EQ(texts.currentText(), QStringLiteral("どこにもない値"));
        EXPECT_EQ(texts.count(), 3);
        Control<QCheckBox>(dialog, 1022).click();
        EXPECT_EQ(texts.currentText(), QString());
        EXPECT_FALSE(texts.isEnabled());
        Control<QCheckBox>(dialog, 1030).click();
        Control<QDateEdit>(dialog, 1033).setDate({2023, 5, 2});
        Control<QDateEdit>(dialog, 1034).setDate({2023, 5, 3});
        Press(dialog, QDialogButtonBox::Ok);
    });
    shown.Click(execute);
    EXPECT_THAT(shown.Shown(), ElementsAre(1, 2));
    shown.InDetails([](QWidget& dialog) {
        EXPECT_EQ(Control<QDateEdit>(dialog, 1034).date(), QDate(2023, 5, 3));
        Control<QDateEdit>(dialog, 1034).setDate({2023, 5, 4});
        Press(dialog, QDialogButtonBox::Cancel);
    });
    EXPECT_THAT(shown.Shown(), ElementsAre(1, 2));
}
} // namespace
