#include "platform/DoxDocument.h"

#include "platform/AtomicFile.h"
#include "platform/CaseFallback.h"
#include "platform/Cp932.h"
#include "platform/DoxTree.h"
#include "platform/DoxWriter.h"
#include "platform/FolderLock.h"
#include "platform/MibFile.h"
#include "platform/TextEncoding.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace
{
/// More than any delivery holds, and little enough for the tree to stay in memory.
constexpr std::size_t largestFile = std::size_t{1} << 30;

constexpr unsigned parseOptions = pugi::parse_escapes | pugi::parse_eol | pugi::parse_cdata |
                                  pugi::parse_wconv_attribute | pugi::parse_embed_pcdata |
                                  pugi::parse_declaration | pugi::parse_doctype;

std::size_t LineOf(const CString& text, std::size_t offset)
{
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size()));
    return static_cast<std::size_t>(std::count(text.begin(), end, '\n')) + 1;
}

/// True when the character reference at the front of \p text is closed and names a character.
bool IsRightReference(std::string_view text)
{
    const bool hexadecimal = text.starts_with("&#x");
    const char* const first = text.data() + (hexadecimal ? 3 : 2);
    const char* const last = text.data() + text.size();
    std::uint32_t codePoint = 0;
    const auto [end, error] = std::from_chars(first, last, codePoint, hexadecimal ? 16 : 10);
    return error == std::errc() && end != last && *end == ';' && IsXmlCharacter(codePoint);
}

/// The offset of the first character reference in \p text to something that is no character, which
/// the parser would let through; nothing when there is none.
std::optional<std::size_t> FindWrongReference(std::string_view text)
{
    constexpr std::pair<std::string_view, std::string_view> verbatim[] = {{"<!--", "-->"},
                                                                          {"<![CDATA[", "]]>"}};
    if (text.find("&#") == std::string_view::npos) return std::nullopt;
    for (std::size_t at = text.find_first_of("<&"); at < text.size();
         at = text.find_first_of("<&", at + 1)) {
        const std::string_view rest = text.substr(at);
        if (rest.starts_with("&#") && !IsRightReference(rest)) return at;
        for (const auto& [begin, end] : verbatim) {
            if (rest.starts_with(begin)) at = std::min(text.find(end, at), text.size());
        }
    }
    return std::nullopt;
}
} // namespace

DoxDocument::DoxDocument() = default;
DoxDocument::~DoxDocument() = default;

bool DoxDocument::Initiate()
{
    tree = std::make_unique<Tree>();
    problem.clear();
    return true;
}

bool DoxDocument::Load(const CString& path, bool, CStringArray* errors)
{
    Initiate();
    if (!MibIsFileExist(path)) return Fail("ファイルがありません", errors);
    bool readable = false;
    std::optional<CString> text = ReadTextFile(path, largestFile, readable);
    if (!readable) return Fail("読み込めないか、大きすぎます", errors);
    if (!text) return Fail("宣言された文字コードにない文字があります", errors);
    if (const std::size_t zero = text->find('\0'); zero != CString::npos) {
        return Fail(Format("%zu行目に使えない文字（NUL）があります", LineOf(*text, zero)), errors);
    }
    if (const auto wrong = FindWrongReference(*text)) {
        return Fail(Format("%zu行目の文字参照が正しくありません", LineOf(*text, *wrong)), errors);
    }
    tree->text = std::move(*text);
    const pugi::xml_parse_result result = tree->document.load_buffer_inplace(
        tree->text.data(), tree->text.size(), parseOptions, pugi::encoding_utf8);
    if (!result) {
        const std::size_t line = LineOf(tree->text, static_cast<std::size_t>(result.offset));
        return Fail(Format("%zu行目の近くでXMLの書式が壊れています", line), errors);
    }
    const pugi::xml_node root = tree->document.document_element();
    if (root.next_sibling()) return Fail("XMLの最上位の要素が2つ以上あります", errors);
    return true;
}

bool DoxDocument::LoadThroughFile(const CString& path, std::string_view bytes)
{
    const FolderLock lock(path.substr(0, path.rfind('/') + 1));
    const bool loaded = WriteFileAtomically(path, bytes) && Load(path, false, nullptr);
    MibDeleteFile(path);
    return loaded;
}

void DoxDocument::TransIndent(const char* indent)
{
    indentation = indent == nullptr ? "\t" : indent;
}

bool DoxDocument::Save(const CString& path, unsigned long, int*) const
{
    if (!tree || !tree->document.document_element()) return false;
    const pugi::xml_node declaration = tree->document.first_child();
    const CString encoding = declaration.attribute("encoding").value();
    CString text = WriteXml(tree->document, indentation);
    if (EqualNoCase(encoding, "Shift_JIS")) {
        text = Cp932::EncodeForXml(text);
    } else if (!EqualNoCase(encoding, "UTF-8")) {
        return false;
    }
    const CString existing = ExistingPath(path);
    return WriteFileAtomically(existing.empty() ? path : existing, text);
}

void DoxDocument::Terminate()
{
    tree.reset();
}

bool DoxDocument::Fail(const CString& reason, CStringArray* errors)
{
    problem = reason;
    tree = std::make_unique<Tree>();
    if (errors != nullptr) errors->Add(reason);
    return false;
}
