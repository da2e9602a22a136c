#include "sample/SamplePhoto.h"

#include "sample/SampleRandom.h"
#include "sample/SampleWords.h"

#include <algorithm>

namespace
{
/// How a figure and its design are written into 施工管理値.
constexpr std::string_view controlForms[] = {
    "{工種}({細別}):設計寸法{設計}・実測寸法{実測}",
    "{測定}:設計値{設計}・実測値{実測}",
    "{測定}:設計{設計} 実測{実測}",
    "{測定} 設計値={設計} 実測値={実測} 差={差}mm",
};

CString FullWidth(std::string_view text)
{
    CString wide;
    while (!text.empty()) {
        const char32_t c = TakeCodePoint(text);
        AppendUtf8(wide, c == U' ' ? U'\u3000' : c > U' ' && c < U'\x7F' ? c + 0xFEE0 : c);
    }
    return wide;
}

/// \p text without the characters that the standards don't allow.
CString Tidied(CString text)
{
    constexpr std::pair<std::string_view, std::string_view> replacements[] = {
        {"①", "1"}, {"②", "2"}, {"㈱", "(株)"}, {"髙", "高"}};
    for (const auto& [from, to] : replacements) text = ReplaceAll(std::move(text), from, to);
    return text;
}

CString FigureText(int millimetres, std::string_view unit)
{
    return unit == "m" ? Format("%.3fm", millimetres / 1000.0) : Format("%dmm", millimetres);
}

/// Puts one photograph together. It draws its random numbers in one fixed order.
class PhotoMaker
{
public:
    PhotoMaker(const SampleSchema& kind, const SampleWork& theWork, unsigned theSeed,
               const SamplePlace& thePlace)
        : schema(kind), work(theWork), seed(theSeed), place(thePlace),
          random(seed, SamplePart::Photo, place.photo), branch(random.Pick(SampleWords::branches))
    {}

    SamplePhoto Make()
    {
        AddDrawings();
        ChooseCategory();
        AddWorkTypes();
        AddFileFacts();
        AddCaptureFacts();
        AddControlValues();
        AddFlagsAndRemarks();
        for (const SampleGroupSchema& group : schema.photoGroups) {
            if (group.name == "付加情報") {
                std::ranges::move(drawings, std::back_inserter(photo.groups));
            } else {
                photo.groups.push_back(Sorted(group));
            }
        }
        return std::move(photo);
    }

private:
    void ChooseCategory();
    void AddWorkTypes();
    void AddFileFacts();
    void AddCaptureFacts();
    void AddControlValues();
    void AddFlagsAndRemarks();
    void AddDrawings();
    void AddNamedDrawing(int drawing);
    void AddNumberedDrawings(int first, int end);

    bool HasWhatSubmittingNeeds() const;

    CString Title();
    CString PlaceName();
    CString LongFileName(int serial);
    CString DrawingName(int drawing) const;
    std::string_view DrawingTitle(int drawing) const;
    SampleGroup Sorted(const SampleGroupSchema& group) const;

    void Put(std::string_view title, CString value)
    {
        items.push_back({CString(title), place.tidy ? Tidied(std::move(value)) : std::move(value)});
    }
    void PutConditional(std::string_view title, CString value, int absent, int empty);

    bool IsFirst() const { return place.photo == 0; }
    bool IsLast() const { return place.photo > 0 && place.photo == place.photos - 1; }
    bool IsWork() const { return division == "工事"; }
    bool IsMeasured() const
    {
        return IsWork() &&
               (subject == SampleSubject::Dimension || subject == SampleSubject::Progress);
    }

    const SampleSchema& schema;
    const SampleWork& work;
    unsigned seed;
    SamplePlace place;
    SampleRandom random;
    const SampleBranch& branch;
    std::string_view division = "工事";
    std::string_view category;
    SampleSubject subject = SampleSubject::BeforeAfter;
    /// All values, in any order; Sorted() brings them into that of the kind.
    std::vector<SampleItem> items;
    std::vector<SampleGroup> drawings;
    SamplePhoto photo;
};

/// Adds an element that may be missing: in \p absent of 100 photographs it isn't there, in \p empty
/// it has no text. An element that the kind demands always comes with its value.
void PhotoMaker::PutConditional(std::string_view title, CString value, int absent, int empty)
{
    constexpr int neither = 100;
    const int dice = place.tidy ? (random.Below(100), neither) : random.Below(100);
    const SampleElement* element = schema.Find(title);
    if (element == nullptr) return;
    if (element->occurrence == '1' || dice >= absent + empty) {
        Put(title, std::move(value));
    } else if (dice >= absent) {
        Put(title, {});
    }
}

void PhotoMaker::ChooseCategory()
{
    const auto categories = SampleWords::CategoriesOf(schema.family);
    const auto step = static_cast<std::size_t>(place.photo) * 7;
    category = IsLast() ? SampleWords::completionCategories[static_cast<std::size_t>(schema.family)]
                        : categories[step % categories.size()].word;
    subject = SampleWords::SubjectOf(category);
    constexpr std::string_view others[] = {"測量", "調査", "地質", "広報", "設計", "その他"};
    if (!IsFirst() && !IsLast() && random.Chance(6)) division = random.Pick(others);
}

void PhotoMaker::AddWorkTypes()
{
    Put("写真-大分類", CString(division));
    if (IsWork()) {
        PutConditional("写真区分", CString(category), 0, 2);
        const bool isPart =
            subject != SampleSubject::BeforeAfter && subject != SampleSubject::Safety;
        if (isPart || place.tidy) {
            PutConditional("工種", CString(branch.type), 3, 3);
            PutConditional("種別", CString(branch.kind), 5, 4);
            PutConditional("細別", CString(branch.detail), 8, 6);
        }
    }
    Put("写真タイトル", Title());
    constexpr int noteCounts[] = {0, 0, 0, 0, 1, 1, 2, 3};
    for (int count = random.Pick(noteCounts); count > 0; --count) {
        Put("工種区分予備", CString(random.Pick(SampleWords::notes)));
    }
}

CString PhotoMaker::Title()
{
    if (!IsWork()) return CString(division) + Format("状況 No.%d", random.Between(1, 20));
    const SampleWords::WordList titles = SampleWords::titles[static_cast<std::size_t>(subject)];
    CString title = ReplaceAll(CString(random.Pick(titles)), "{細別}", branch.detail);
    title = ReplaceAll(std::move(title), "{測定}", branch.measure);
    if (subject != SampleSubject::BeforeAfter) return title;
    // One word of some families stands for both.
    const bool isEither = category == "着手前及び完成写真" && !IsFirst() && !IsLast();
    const bool isFinished = isEither ? random.Chance(50) : IsLast() || category == "完成写真";
    return (isFinished ? "完成 " : "着手前 ") + title;
}

void PhotoMaker::AddFileFacts()
{
    const int stride = 11 + static_cast<int>(seed % 7);
    const int serial = place.photo + 1 + place.photo / stride * 2;
    // Pictures inside a drawing file came with the newest editions.
    const bool drawn = schema.dtdVersion == "05" && place.photos >= 3 && IsLast();
    const CString extension = drawn ? "SVG" : "JPG";
    Put("シリアル番号", std::to_string(serial));
    Put("写真ファイル名", schema.section == "国交省-11" ? LongFileName(serial)
                                                        : Format("P%07d.", serial) + extension);
    const CString subjectWord = category.empty() ? CString(division) : CString(category);
    PutConditional("写真ファイル日本語名", subjectWord + Format("%05d.", serial) + extension, 30,
                   15);
    Put("メディア番号", std::to_string(place.disc));
}

CString PhotoMaker::LongFileName(int serial)
{
    constexpr std::string_view codes[] = {"kidou-zenkei", "sekou-jokyo_ROBAN",
                                          "Dekigata_A-A_danmen",
                                          "hinshitsu-kanri_slump+air+chloride_field-test"};
    if (random.Chance(40)) {
        return "NR123_aoba-district_" + CString(random.Pick(codes)) + Format("_%06d.JPG", serial);
    }
    return CString(category) + "_" + CString(branch.type) + "_" + CString(branch.kind) +
           Format("_%06d.JPG", serial);
}

void PhotoMaker::AddCaptureFacts()
{
    if (IsWork()) PutConditional("撮影箇所", PlaceName(), 6, 5);
    const auto period = (work.lastDay - work.firstDay).count();
    photo.day = work.firstDay + std::chrono::days(period * place.photo / place.photos);
    PutConditional("撮影年月日", DateText(photo.day), 4, 4);
}

CString PhotoMaker::PlaceName()
{
    const int station = random.Between(1, 24);
    const int rest = random.Between(0, 19);
    switch (random.Below(6)) {
    case 0:
        return Format("測点:%dL", station);
    case 1:
        return Format("測点:No.%d+%d.%d 右側", station, rest, random.Below(10));
    case 2:
        return Format("No.%d～No.%d 左岸", station, station + 2);
    case 3:
        return place.tidy ? Format("測点:No.%d+%d", station, rest)
                          : FullWidth(Format("測点:No.%d+%d", station, rest));
    case 4:
        return schema.family == SampleFamily::Nexco
                   ? Format("STA.%d+%d 上り線", station * 7, rest)
                   : Format("%d工区 P%d橋脚", station % 3 + 1, rest % 5 + 1);
    default:
        return Format("測点:No.%d+%d", station, rest);
    }
}

void PhotoMaker::AddControlValues()
{
    if (!IsMeasured()) {
        if (subject == SampleSubject::Quality) {
            PutConditional("施工管理値", CString(random.Pick(SampleWords::controlRemarks)), 20, 10);
        }
        return;
    }
    const int difference = random.Between(-branch.tolerance / 3, branch.tolerance);
    photo.design = FigureText(branch.design, branch.unit);
    photo.measured = FigureText(branch.design + difference, branch.unit);
    const CString type = (branch.type == "舗装工" ? "As" : "") + CString(branch.type);
    CString text(random.Pick(controlForms));
    const std::pair<std::string_view, CString> fields[] = {
        {"{工種}", type},           {"{細別}", CString(branch.detail)},
        {"{設計}", photo.design},   {"{測定}", CString(branch.measure)},
        {"{実測}", photo.measured}, {"{差}", Format("%+d", difference)}};
    for (const auto& [field, value] : fields) text = ReplaceAll(std::move(text), field, value);
    if (random.Chance(15) && !place.tidy) text = FullWidth(text);
    PutConditional("施工管理値", std::move(text), subject == SampleSubject::Dimension ? 5 : 70, 5);
}

void PhotoMaker::AddFlagsAndRemarks()
{
    const bool isKey = random.Chance(25) || (place.tidy && IsFirst());
    PutConditional("代表写真", isKey ? "1" : "0", 5, 2);
    const bool isSubmitted = random.Chance(40) && HasWhatSubmittingNeeds();
    PutConditional("提出頻度写真", isSubmitted ? "1" : "0", 15, 5);
    PutConditional("請負者説明文", CString(random.Pick(SampleWords::remarks)), 55, 15);
    PutConditional("整理フラグ", random.Chance(50) ? "1" : "0", 30, 5);
}

/// Figures and test results that are submitted can't do without 工種.
bool PhotoMaker::HasWhatSubmittingNeeds() const
{
    const bool isResult = subject == SampleSubject::Dimension || subject == SampleSubject::Quality;
    return !IsWork() || !isResult || std::ranges::any_of(items, [](const SampleItem& item) {
        return item.title == "工種" && !item.value.empty();
    });
}

CString PhotoMaker::DrawingName(int drawing) const
{
    const bool bilevel = drawing == 1 && place.drawings >= 2;
    return Format("D%07d.%s", drawing + 1, bilevel ? "TIF" : "JPG");
}

std::string_view PhotoMaker::DrawingTitle(int drawing) const
{
    return SampleRandom(seed, SamplePart::Drawing, drawing).Pick(SampleWords::drawingTitles);
}

void PhotoMaker::AddDrawings()
{
    const int count = place.endDrawing - place.firstDrawing;
    if (schema.Find("参考図1") != nullptr && count > 1) {
        for (int first = place.firstDrawing; first < place.endDrawing; first += 3) {
            AddNumberedDrawings(first, std::min(first + 3, place.endDrawing));
        }
        return;
    }
    for (int drawing = place.firstDrawing; drawing < place.endDrawing; ++drawing) {
        AddNamedDrawing(drawing);
    }
}

void PhotoMaker::AddNamedDrawing(int drawing)
{
    const CString name = DrawingName(drawing);
    const CString title(DrawingTitle(drawing));
    Put("参考図ファイル名", name);
    PutConditional("参考図ファイル日本語名", title + Format("%05d", drawing + 1) + name.substr(8),
                   25, 15);
    Put("参考図タイトル", title);
    for (int count = random.Below(3); count > 0; --count) {
        Put("付加情報予備", Format("図面番号 %d/%d", count, place.drawings));
    }
    drawings.push_back({"付加情報", std::exchange(items, {})});
}

void PhotoMaker::AddNumberedDrawings(int first, int end)
{
    for (int drawing = first; drawing < end; ++drawing) {
        Put(Format("参考図%d", drawing - first + 1), DrawingName(drawing));
    }
    Put("参考図タイトル", CString(DrawingTitle(first)));
    drawings.push_back({"付加情報", std::exchange(items, {})});
}

SampleGroup PhotoMaker::Sorted(const SampleGroupSchema& group) const
{
    SampleGroup sorted{CString(group.name), {}};
    for (const SampleElement& element : group.elements) {
        std::ranges::copy_if(items, std::back_inserter(sorted.items),
                             [&](const SampleItem& item) { return item.title == element.name; });
    }
    return sorted;
}
} // namespace

CString SampleGroup::Value(std::string_view title) const
{
    const auto found = std::ranges::find(items, title, &SampleItem::title);
    return found == items.end() ? CString() : found->value;
}

CString SamplePhoto::Value(std::string_view title) const
{
    for (const SampleGroup& group : groups) {
        const auto found = std::ranges::find(group.items, title, &SampleItem::title);
        if (found != group.items.end()) return found->value;
    }
    return {};
}

SampleWork MakeSampleWork(const SampleSchema& schema, unsigned seed)
{
    using namespace std::chrono;
    SampleRandom random(seed, SamplePart::Work);
    const sys_days first = year(schema.workYear) / June / random.Between(1, 28);
    return {CString(random.Pick(SampleWords::workNames[static_cast<std::size_t>(schema.family)])),
            CString(random.Pick(SampleWords::contractors)), first,
            first + days(random.Between(180, 290))};
}

SamplePhoto MakeSamplePhoto(const SampleSchema& schema, const SampleWork& work, unsigned seed,
                            const SamplePlace& place)
{
    return PhotoMaker(schema, work, seed, place).Make();
}

CString DateText(std::chrono::sys_days day)
{
    const std::chrono::year_month_day date(day);
    return Format("%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
}
