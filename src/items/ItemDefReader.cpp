#include "items/ItemDefReader.h"

#include "platform/xml/DoxDocument.h"
#include "platform/xml/DoxIterator.h"

#include <algorithm>
#include <functional>

namespace
{
struct Word
{
    const char* text;
    int value;
};

constexpr Word grades[] = {{"不要", GradeUnneeded},
                           {"必須", GradeRequired},
                           {"条件付き必須", GradeConditional},
                           {"任意", GradeOptional},
                           {"連携", GradeLinked}};
constexpr Word shows[] = {{"Not", ShowNot},
                          {"MainList", ShowMainList},
                          {"InfoDlg", ShowInfoDlg},
                          {"ZoomDlg", ShowZoomDlg}};
constexpr Word counts[] = {{"0", CountNone},
                           {"1", CountOne},
                           {"0/1", CountZeroOrOne},
                           {"0+", CountZeroOrMore},
                           {"1+", CountOneOrMore}};
constexpr Word operations[] = {{"Child", StepChild}, {"Next", StepNext}, {"Parent", StepParent}};
constexpr Word plurals[] = {{"○", 1}, {"×", 0}};
constexpr Word readTypes[] = {
    {"NotItem", ReadNotItem}, {"MngItem", ReadMngItem}, {"PhotoItem", ReadPhotoItem}};

template <class Value, std::size_t count>
void Translate(const Word (&words)[count], const CString& text, Value& value)
{
    const auto* word = std::find_if(std::begin(words), std::end(words),
                                    [&text](const Word& known) { return text == known.text; });
    if (word != std::end(words)) value = static_cast<Value>(word->value);
}

struct Field
{
    const char* tag;
    void (*set)(Definition& definition, const CString& text);
};

constexpr Field fields[] = {
    {"タイトル", [](Definition& d, const CString& text) { d.title = text; }},
    {"必要度", [](Definition& d, const CString& text) { Translate(grades, text, d.grade); }},
    {"表示", [](Definition& d, const CString& text) { Translate(shows, text, d.show); }},
    {"データ数", [](Definition& d, const CString& text) { Translate(counts, text, d.count); }},
    {"操作", [](Definition& d, const CString& text) { Translate(operations, text, d.operation); }},
    {"ブロック複数",
     [](Definition& d, const CString& text) { Translate(plurals, text, d.blockPlural); }},
    {"読込種別",
     [](Definition& d, const CString& text) { Translate(readTypes, text, d.readType); }},
};

/// Calls \p visit with the iterator on each child of the element on which it stands.
void ForEachChild(DoxIterator& it, const std::function<void()>& visit)
{
    if (!it.Child()) return;
    do {
        visit();
    } while (it.NextSibling());
    it.Parent();
}

void ReadFields(DoxIterator& it, Definition& definition)
{
    ForEachChild(it, [&it, &definition] {
        for (const Field& field : fields) {
            if (it.IsTag(field.tag)) field.set(definition, it.GetText());
        }
    });
}
} // namespace

bool ReadItemDefinitions(const CString& path, const CString& section, CArray<Definition>& out)
{
    DoxDocument document;
    if (!document.Initiate() || !document.Load(path, false, nullptr)) return false;
    DoxIterator it(&document);
    it.Root();
    if (it.IsTag("information")) it.Child();
    Definition working;
    do {
        if (!it.IsTag(section)) continue;
        ForEachChild(it, [&it, &working, &out] {
            if (!it.IsTag("管理項目")) return;
            ReadFields(it, working);
            out.Add(working);
        });
    } while (it.NextSibling());
    document.Terminate();
    return true;
}
