#include "sample/SampleSchema.h"

#include <algorithm>
#include <iterator>

namespace
{
/// The columns of the element table. Kinds with the same elements share one.
enum Column
{
    Mlit11,
    Mlit14,
    Mlit16,
    Mlit18,
    Mlit20,
    Maff17,
    Nexco24
};

struct ElementRow
{
    std::string_view name;
    std::string_view parent;
    /// One sign for each Column; a blank where the kind lacks the element.
    std::string_view occurrences;
};

constexpr ElementRow elementRows[] = {
    {"基礎情報", "photodata", "1111111"},
    {"写真フォルダ名", "基礎情報", "1111111"},
    {"参考図フォルダ名", "基礎情報", "???????"},
    {"適用要領基準", "基礎情報", "1111111"},
    {"工事情報", "photodata", "1      "},
    {"工事名称", "工事情報", "1      "},
    {"写真情報", "photodata", "+++++++"},
    {"写真ファイル情報", "写真情報", "1111111"},
    {"シリアル番号", "写真ファイル情報", "1111111"},
    {"写真ファイル名", "写真ファイル情報", "1111111"},
    {"写真ファイル日本語名", "写真ファイル情報", "???????"},
    {"メディア番号", "写真ファイル情報", "1111111"},
    {"撮影工種区分", "写真情報", "1111111"},
    {"写真-大分類", "撮影工種区分", "1111111"},
    {"写真区分", "撮影工種区分", "???????"},
    {"工種", "撮影工種区分", "???????"},
    {"種別", "撮影工種区分", "???????"},
    {"細別", "撮影工種区分", "???????"},
    {"写真タイトル", "撮影工種区分", "1111111"},
    {"工種区分予備", "撮影工種区分", "*******"},
    {"付加情報", "写真情報", "*******"},
    {"参考図1", "付加情報", "?      "},
    {"参考図2", "付加情報", "?      "},
    {"参考図3", "付加情報", "?      "},
    {"参考図ファイル名", "付加情報", "?111111"},
    {"参考図ファイル日本語名", "付加情報", "???????"},
    {"参考図タイトル", "付加情報", "?111111"},
    {"付加情報予備", "付加情報", "*******"},
    {"撮影情報", "写真情報", "1111111"},
    {"撮影箇所", "撮影情報", "???????"},
    {"撮影年月日", "撮影情報", "???11?1"},
    {"代表写真", "写真情報", "  1111 "},
    {"提出頻度写真", "写真情報", "  ??1  "},
    {"施工管理値", "写真情報", "???????"},
    {"請負者説明文", "写真情報", "???????"},
    {"整理フラグ", "写真情報", "?      "},
    {"ソフトメーカ用TAG", "photodata", "*******"},
};

struct KindRow
{
    std::string_view section;
    SampleFamily family;
    int workYear;
    std::string_view photoDtd;
    std::string_view dtdVersion;
    std::string_view indexDtd;
    std::string_view standard;
    Column column;
};

using enum SampleFamily;

constexpr KindRow kindRows[] = {
    {"国交省-11", Mlit, 2000, "PHOTO.DTD", "01", "INDE_C01.DTD", "土木199908-01", Mlit11},
    {"国交省-14", Mlit, 2003, "PHOTO02.DTD", "02", "INDE_C02.DTD", "土木200207-01", Mlit14},
    {"国交省-16", Mlit, 2005, "PHOTO03.DTD", "03", "INDE_C03.DTD", "土木200406-01", Mlit16},
    {"国交省-18", Mlit, 2007, "PHOTO04.DTD", "04", "INDE_C04.DTD", "土木200601-01", Mlit18},
    {"国交省-20", Mlit, 2023, "PHOTO05.DTD", "05", "INDE_C07.DTD", "土木202303-01", Mlit20},
    {"農水省-15", Maff, 2004, "PHOTO02N.DTD", "02", "INDEC02N.DTD", "農村振興200303-01", Mlit14},
    {"農水省-17", Maff, 2006, "PHOTO03.DTD", "03", "INDE_C03.DTD", "農村振興200504-01", Maff17},
    {"農水省-23", Maff, 2023, "PHOTO05.DTD", "05", "INDE_C05.DTD", "農村振興201103-01", Mlit20},
    {"NEXCO-14", Nexco, 2003, "PHOTO02.DTD", "02", "PHOT_JH1.DTD", "NEXCO200210-01", Mlit14},
    {"NEXCO-18", Nexco, 2007, "PHOTO03.DTD", "03", "PHOT_JH1.DTD", "NEXCO200604-01", Mlit14},
    {"NEXCO-24", Nexco, 2014, "PHOTO04.DTD", "04", "PHOT_JH4.DTD", "NEXCO201207-01", Nexco24},
};

SampleSchema SchemaOf(const KindRow& kind)
{
    SampleSchema schema{kind.section,
                        kind.family,
                        kind.workYear,
                        kind.photoDtd,
                        kind.dtdVersion,
                        kind.indexDtd,
                        kind.standard,
                        {},
                        {}};
    for (const ElementRow& row : elementRows) {
        const char occurrence = row.occurrences[kind.column];
        if (occurrence != ' ') schema.elements.push_back({row.name, row.parent, occurrence});
    }
    SampleGroupSchema direct{"写真情報", {}};
    for (const SampleElement& element : schema.ChildrenOf("写真情報")) {
        std::vector<SampleElement> children = schema.ChildrenOf(element.name);
        if (children.empty()) {
            direct.elements.push_back(element);
        } else {
            schema.photoGroups.push_back({element.name, std::move(children)});
        }
    }
    schema.photoGroups.push_back(std::move(direct));
    return schema;
}

CString ContentModel(const std::vector<SampleElement>& elements, std::string_view parent)
{
    CString model;
    for (const SampleElement& element : elements) {
        if (element.parent != parent) continue;
        model.append(model.empty() ? "" : ", ").append(element.name);
        if (element.occurrence != '1') model += element.occurrence;
    }
    return model.empty() ? "#PCDATA" : model;
}
} // namespace

const SampleElement* SampleSchema::Find(std::string_view name) const
{
    const auto found = std::ranges::find(elements, name, &SampleElement::name);
    return found == elements.end() ? nullptr : &*found;
}

std::vector<SampleElement> SampleSchema::ChildrenOf(std::string_view parent) const
{
    std::vector<SampleElement> children;
    std::ranges::copy_if(elements, std::back_inserter(children),
                         [&](const SampleElement& element) { return element.parent == parent; });
    return children;
}

const std::vector<SampleSchema>& SampleSchemas()
{
    static const std::vector<SampleSchema> schemas = [] {
        std::vector<SampleSchema> made;
        std::ranges::transform(kindRows, std::back_inserter(made), SchemaOf);
        return made;
    }();
    return schemas;
}

const SampleSchema* FindSampleSchema(std::string_view section)
{
    const auto& schemas = SampleSchemas();
    const auto found = std::ranges::find(schemas, section, &SampleSchema::section);
    return found == schemas.end() ? nullptr : &*found;
}

CString DtdText(std::string_view root, std::string_view version,
                const std::vector<SampleElement>& elements)
{
    CString text;
    const auto declare = [&](std::string_view name) {
        text.append("<!ELEMENT ").append(name);
        text.append(" (" + ContentModel(elements, name) + ")>\n");
    };
    declare(root);
    text.append("<!ATTLIST ").append(root);
    text.append(" DTD_version CDATA #FIXED \"").append(version).append("\">\n");
    for (const SampleElement& element : elements) declare(element.name);
    return text;
}
