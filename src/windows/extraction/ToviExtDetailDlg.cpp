#include "windows/extraction/ToviExtDetailDlg.h"

#include "delivery/ToviData.h"
#include "platform/controls/Radios.h"
#include "platform/controls/ScrolledPage.h"
#include "platform/controls/WindowId.h"
#include "platform/host/HostServices.h"
#include "platform/text/QtText.h"
#include "windows/extraction/DetailConditions.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>

namespace
{
constexpr int idFirstCheck = 1021;
constexpr int idFirstItem = 1024;
constexpr int idFirstText = 1027;
constexpr int idDateOn = 1030;
constexpr int idShootingDate = 1031;
constexpr int idFileDate = 1032;
constexpr int idDateFrom = 1033;
constexpr int idDateTo = 1034;
constexpr int idAnd = 1035;
constexpr int idOr = 1036;
/// In characters; what room there is beyond them goes to the boxes.
constexpr int itemWidth = 9;
constexpr int textWidth = 14;
/// The most values that are looked through while the user types.
constexpr int mostMatched = 20000;

QDateEdit* MakePicker(int id, const QString& name)
{
    auto* const picker = new QDateEdit(QDate::currentDate());
    SetWindowId(picker, id);
    picker->setCalendarPopup(true);
    picker->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    picker->setAccessibleName(name);
    return picker;
}

void ShowDay(QDateEdit& picker, const CString& text)
{
    const auto day = ParseDay(text);
    if (day) picker.setDate({day->year, day->month, day->day});
}

CString DayIn(const QDateEdit& picker)
{
    const QDate date = picker.date();
    return DayText({date.year(), date.month(), date.day()});
}

/// A box for as many values as there are photographs: no width and height is asked of each.
QComboBox* MakeValueBox(QStringListModel* values)
{
    auto* const box = new QComboBox;
    auto* const list = new QListView;
    list->setUniformItemSizes(true);
    box->setView(list);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(textWidth);
    box->setModel(values);
    return box;
}

/// Offers those of the values of \p box that hold what is typed, and never puts one in its place
/// unasked. Among too many it would hold the keys up.
void OfferMatches(QComboBox& box)
{
    if (box.count() > mostMatched) {
        box.setCompleter(nullptr);
        return;
    }
    auto* const completer = new QCompleter(box.model(), box.lineEdit());
    completer->setCompletionMode(QCompleter::PopupCompletion);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseSensitive);
    box.setCompleter(completer);
}
} // namespace

ToviExtDetailDlg::ToviExtDetailDlg(ToviData& theDocument, const ExtractionConditions& before,
                                   QWidget* parent)
    : WenDialog(parent), document(theDocument), conditions(WithoutWhatIsOff(before)),
      dateOn(new QCheckBox(QStringLiteral("日付で抽出する"))),
      dateFrom(MakePicker(idDateFrom, QStringLiteral("この日から"))),
      dateTo(MakePicker(idDateTo, QStringLiteral("この日まで")))
{
    setWindowTitle(QStringLiteral("詳細設定"));
    auto* const items = new QGroupBox(QStringLiteral("管理項目"));
    auto* const grid = new QGridLayout(items);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 2);
    for (std::size_t number = 0; number < rows.size(); ++number) AddRow(number, grid);
    auto* const hint = new QLabel(QStringLiteral(
        "文字列が項目の値と同じ写真を抽出します。一部だけが同じ写真は抽出しません。"));
    hint->setWordWrap(true);
    grid->addWidget(hint, grid->rowCount(), 0, 1, -1);
    auto* const page = new QWidget;
    auto* const column = new QVBoxLayout(page);
    column->addWidget(items);
    column->addWidget(MakeDates());
    column->addWidget(MakeModes());
    column->addStretch(1);
    auto* const all = new QVBoxLayout(this);
    all->addWidget(new ScrolledPage(page), 1);
    all->addWidget(MakeOkCancel());
}

void ToviExtDetailDlg::AddRow(std::size_t number, QGridLayout* grid)
{
    static const QString names[] = {QStringLiteral("項目１"), QStringLiteral("項目２"),
                                    QStringLiteral("項目３")};
    const int offset = static_cast<int>(number);
    Row& row = rows[number];
    row.on = new QCheckBox(names[number]);
    row.item = new QComboBox;
    row.item->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    row.item->setMinimumContentsLength(itemWidth);
    row.item->setAccessibleName(names[number]);
    row.values = new QStringListModel(this);
    row.text = MakeValueBox(row.values);
    row.text->setAccessibleName(names[number] + QStringLiteral("の文字列"));
    auto* const label = new QLabel(QStringLiteral("文字列"));
    SetWindowId(row.on, idFirstCheck + offset);
    SetWindowId(row.item, idFirstItem + offset);
    SetWindowId(row.text, idFirstText + offset);
    grid->addWidget(row.on, offset, 0);
    grid->addWidget(row.item, offset, 1);
    grid->addWidget(label, offset, 2);
    grid->addWidget(row.text, offset, 3);
    connect(row.on, &QCheckBox::clicked, this, [this, &row] { OnRowClicked(row); });
    connect(row.item, &QComboBox::activated, this, [this, &row] { FillValues(row); });
}

QWidget* ToviExtDetailDlg::MakeDates()
{
    auto* const group = new QGroupBox(QStringLiteral("日付"));
    auto* const column = new QVBoxLayout(group);
    SetWindowId(dateOn, idDateOn);
    column->addWidget(dateOn);
    auto* const kinds = new QHBoxLayout;
    dateKind = AddRadios(
        this, kinds, {{idShootingDate, "撮影年月日で検索"}, {idFileDate, "ファイル更新日で検索"}});
    kinds->addStretch(1);
    column->addLayout(kinds);
    auto* const range = new QHBoxLayout;
    range->addWidget(dateFrom);
    range->addWidget(new QLabel(QStringLiteral("～")));
    range->addWidget(dateTo);
    range->addStretch(1);
    column->addLayout(range);
    connect(dateOn, &QCheckBox::clicked, this, &ToviExtDetailDlg::EnableDates);
    return group;
}

QWidget* ToviExtDetailDlg::MakeModes()
{
    auto* const group = new QGroupBox(QStringLiteral("条件の組み合わせ"));
    auto* const column = new QVBoxLayout(group);
    auto* const hint =
        new QLabel(QStringLiteral("メイン画面の項目も含め、\n以下の条件で抽出を行う"));
    column->addWidget(hint);
    auto* const row = new QHBoxLayout;
    mode = AddRadios(this, row, {{idAnd, "かつ"}, {idOr, "または"}});
    row->addStretch(1);
    column->addLayout(row);
    return group;
}

void ToviExtDetailDlg::OnInitDialog()
{
    for (std::size_t number = 0; number < rows.size(); ++number) ShowRow(number);
    ShowDates();
    mode->button(conditions.orMode == 0 ? 0 : 1)->setChecked(true);
    resize(sizeHint());
}

void ToviExtDetailDlg::ShowRow(std::size_t number)
{
    const Row& row = rows[number];
    const bool isOn = conditions.itemOn[number];
    row.on->setChecked(isOn);
    FillItems(row);
    row.item->setEnabled(isOn);
    row.text->setEnabled(isOn);
    if (!isOn) {
        row.item->setCurrentIndex(-1);
        return;
    }
    row.item->setCurrentIndex(
        std::max(0, row.item->findText(QtText(conditions.itemTitle[number]),
                                       Qt::MatchExactly | Qt::MatchCaseSensitive)));
    FillValues(row);
    const QString text = QtText(conditions.itemText[number]);
    row.text->setCurrentIndex(static_cast<int>(row.values->stringList().indexOf(text)));
    row.text->setEditText(text);
}

void ToviExtDetailDlg::ShowDates()
{
    dateOn->setChecked(conditions.dateOn);
    dateKind->button(conditions.dateKind == 0 ? 0 : 1)->setChecked(true);
    if (conditions.dateOn) {
        ShowDay(*dateFrom, conditions.dateFrom);
        ShowDay(*dateTo, conditions.dateTo);
    }
    EnableDates();
}

void ToviExtDetailDlg::FillItems(const Row& row)
{
    row.item->clear();
    for (const CString& title : DetailItemTitles(*document.GetItemDef())) {
        row.item->addItem(QtText(title));
    }
}

/// Offers the values of the item that is chosen, and takes the first one.
void ToviExtDetailDlg::FillValues(const Row& row)
{
    const CStringArray values = DetailItemValues(document, FromQtText(row.item->currentText()));
    QStringList texts;
    texts.reserve(values.GetSize());
    for (const CString& value : values) texts << QtText(value);
    row.values->setStringList(texts);
    OfferMatches(*row.text);
    row.text->setCurrentIndex(texts.isEmpty() ? -1 : 0);
    if (texts.isEmpty()) row.text->clearEditText();
}

void ToviExtDetailDlg::OnRowClicked(const Row& row)
{
    const bool isOn = row.on->isChecked();
    row.item->setEnabled(isOn);
    row.text->setEnabled(isOn);
    row.item->setCurrentIndex(isOn ? 0 : -1);
    if (isOn) {
        FillValues(row);
    } else {
        row.values->setStringList({});
        row.text->clearEditText();
    }
}

void ToviExtDetailDlg::EnableDates()
{
    const bool isOn = dateOn->isChecked();
    EnableRadios(*dateKind, isOn);
    dateFrom->setEnabled(isOn);
    dateTo->setEnabled(isOn);
}

ExtractionConditions ToviExtDetailDlg::Entered() const
{
    ExtractionConditions entered = conditions;
    for (std::size_t number = 0; number < rows.size(); ++number) {
        entered.itemOn[number] = rows[number].on->isChecked();
        entered.itemTitle[number] = FromQtText(rows[number].item->currentText());
        entered.itemText[number] = FromQtText(rows[number].text->currentText());
    }
    entered.dateOn = dateOn->isChecked();
    entered.dateKind = dateKind->checkedId();
    entered.dateFrom = DayIn(*dateFrom);
    entered.dateTo = DayIn(*dateTo);
    entered.orMode = mode->checkedId();
    return WithoutWhatIsOff(entered);
}

void ToviExtDetailDlg::OnOK()
{
    const ExtractionConditions entered = Entered();
    if (const auto fault = FaultOf(entered)) {
        GetHostServices().userInterface->ShowMessage(fault->text, "設定エラー", MessageButtons::Ok,
                                                     MessageIcon::Warning);
        QWidget* const place = fault->place == DetailFault::dates
                                   ? static_cast<QWidget*>(dateFrom)
                                   : rows[static_cast<std::size_t>(fault->place)].text;
        place->setFocus();
        return;
    }
    conditions = entered;
    WenDialog::OnOK();
}
