#include "sample/SampleIndex.h"

#include "sample/SampleWords.h"

#include <algorithm>

namespace
{
/// An element with its text; a group has none.
struct IndexElement
{
    std::string_view name;
    std::string_view parent;
    CString text;
};

std::vector<IndexElement> IndexElements(const SampleSchema& schema, const SampleWork& work,
                                        const SampleDisc& disc)
{
    const SampleClient& client = SampleWords::clients[static_cast<std::size_t>(schema.family)];
    const CString year = std::to_string(schema.workYear);
    return {
        {"基礎情報", "constdata", {}},
        {"メディア番号", "基礎情報", std::to_string(disc.number)},
        {"メディア総枚数", "基礎情報", std::to_string(disc.count)},
        {"適用要領基準", "基礎情報", CString(schema.standard)},
        {"写真フォルダ名", "基礎情報", "PHOTO"},
        {"工事件名等", "constdata", {}},
        {"発注年度", "工事件名等", year},
        {"工事番号", "工事件名等", year + "0123456"},
        {"工事名称", "工事件名等", work.name},
        {"工期開始日", "工事件名等", DateText(work.firstDay)},
        {"工期終了日", "工事件名等", DateText(work.lastDay)},
        {"工事内容", "工事件名等", "土工、本体工、附帯工、仮設工 1式"},
        {"場所情報", "constdata", {}},
        {"測地系", "場所情報", "02"},
        {"発注者情報", "constdata", {}},
        {"発注者-大分類", "発注者情報", CString(client.ministry)},
        {"発注者-中分類", "発注者情報", CString(client.bureau)},
        {"発注者-小分類", "発注者情報", CString(client.office)},
        {"受注者情報", "constdata", {}},
        {"受注者名", "受注者情報", work.contractor},
        {"予備", "constdata", {}},
        {"ソフトメーカ用TAG", "constdata", {}},
    };
}

CString VersionOf(const SampleSchema& schema)
{
    // The DTD's name holds it: INDE_C05, INDEC02N, PHOT_JH4.
    constexpr auto digits = "0123456789";
    const std::string_view name = schema.indexDtd;
    const auto first = name.find_first_of(digits);
    const CString version(name.substr(first, name.find_first_not_of(digits, first) - first));
    return version.size() == 1 ? "0" + version : version;
}
} // namespace

void WriteIndex(SampleXml& xml, const SampleSchema& schema, const SampleWork& work,
                const SampleDisc& disc)
{
    const std::vector<IndexElement> elements = IndexElements(schema, work, disc);
    const auto childrenOf = [&](std::string_view parent, auto&& write) {
        for (const IndexElement& element : elements) {
            if (element.parent == parent) write(element);
        }
    };
    xml.Raw("<!DOCTYPE constdata SYSTEM \"" + CString(schema.indexDtd) + "\">");
    xml.Open("constdata", "DTD_version=\"" + VersionOf(schema) + "\"");
    childrenOf("constdata", [&](const IndexElement& group) {
        if (std::ranges::find(elements, group.name, &IndexElement::parent) == elements.end()) {
            xml.Leaf(group.name, group.text);
            return;
        }
        xml.Open(group.name);
        childrenOf(group.name, [&](const IndexElement& leaf) { xml.Leaf(leaf.name, leaf.text); });
        xml.Close(group.name);
    });
    xml.Close("constdata");
}

CString IndexDtdText(const SampleSchema& schema)
{
    std::vector<SampleElement> elements;
    for (const IndexElement& element : IndexElements(schema, {}, {})) {
        elements.push_back({element.name, element.parent, '1'});
    }
    return DtdText("constdata", VersionOf(schema), elements);
}
