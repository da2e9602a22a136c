#include "platform/xml/DoxDocument.h"

#include "platform/files/AtomicFile.h"
#include "platform/files/CaseFallback.h"
#include "platform/files/MibFile.h"
#include "platform/files/TextFile.h"
#include "platform/text/Cp932.h"
#include "platform/xml/DoxTree.h"
#include "platform/xml/DoxWriter.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace
{
constexpr std::size_t bytesOfMegabyte = std::size_t{1} << 20;

/// Text outside the root shows as a node of its own, and no root at all is no fault of the parsing.
constexpr unsigned parseOptions = pugi::parse_fragment | pugi::parse_escapes | pugi::parse_eol |
                                  pugi::parse_cdata | pugi::parse_wconv_attribute |
                                  pugi::parse_embed_pcdata | pugi::parse_declaration |
                                  pugi::parse_doctype;

std::size_t LineOf(const CString& text, std::size_t offset)
{
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size()));
    return static_cast<std::size_t>(std::count(text.begin(), end, '\n')) + 1;
}

/// True for the control characters that no XML file holds as such.
bool IsForbidden(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return (byte < 0x20) & (byte != '\t') & (byte != '\n') & (byte != '\r');
}

/// The offset of the first forbidden control character in \p text, which the parser would let
/// through; nothing when there is none.
std::optional<std::size_t> FindForbidden(std::string_view text)
{
    // Whole blocks first: without a way out in its middle the loop takes many characters at a time.
    constexpr std::size_t block = 256;
    std::size_t at = 0;
    const auto isClean = [&text, &at] {
        unsigned char found = 0;
        for (std::size_t i = 0; i < block; ++i) found |= IsForbidden(text[at + i]);
        return found == 0;
    };
    while (at + block <= text.size() && isClean()) at += block;
    const auto* const first = std::find_if(text.begin() + at, text.end(), IsForbidden);
    if (first == text.end()) return std::nullopt;
    return static_cast<std::size_t>(first - text.begin());
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

/// What is wrong with the elements and texts that no other element holds; empty when nothing is.
CString WrongAtTop(const pugi::xml_document& document, const CString& text)
{
    int roots = 0;
    for (const pugi::xml_node& node : document.children()) {
        const bool isText = node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
        if (isText) {
            const auto offset = static_cast<std::size_t>(node.offset_debug());
            const std::size_t blanks = CString(node.value()).find_first_not_of(" \t\r\n");
            const std::size_t line = LineOf(text, offset) + LineOf(node.value(), blanks) - 1;
            return Format("%zu行目で最上位の要素の外に文字があります", line);
        }
        if (node.type() == pugi::node_element) ++roots;
    }
    if (roots == 1) return {};
    return roots == 0 ? "XMLの要素がありません" : "XMLの最上位の要素が2つ以上あります";
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
    if (const std::size_t size = MibFileSize(path); size > largestFile) {
        return Fail(Format("%zuMBあり、読み込む上限の%zuMBを超えています",
                           (size - 1) / bytesOfMegabyte + 1, largestFile / bytesOfMegabyte),
                    errors);
    }
    bool readable = false;
    std::optional<CString> text = ReadTextFile(path, largestFile, readable);
    if (!readable) return Fail("ファイルを最後まで読めません", errors);
    if (!text) return Fail("宣言された文字コードにない文字があります", errors);
    if (const auto control = FindForbidden(*text)) {
        const std::size_t line = LineOf(*text, *control);
        return Fail(Format("%zu行目に使えない制御文字があります", line), errors);
    }
    if (const auto wrong = FindWrongReference(*text)) {
        return Fail(Format("%zu行目の文字参照が正しくありません", LineOf(*text, *wrong)), errors);
    }
    tree->text = std::move(*text);
    // With the NUL behind the text: the parser makes room for one of its own at the end.
    const pugi::xml_parse_result result = tree->document.load_buffer_inplace(
        tree->text.data(), tree->text.size() + 1,
        keepsInstructions ? parseOptions | pugi::parse_pi : parseOptions, pugi::encoding_utf8);
    if (!result) {
        const std::size_t line = LineOf(tree->text, static_cast<std::size_t>(result.offset));
        return Fail(Format("%zu行目の近くでXMLの書式が壊れています", line), errors);
    }
    const CString wrong = WrongAtTop(tree->document, tree->text);
    return wrong.empty() || Fail(wrong, errors);
}

void DoxDocument::LoadText(std::string_view text)
{
    Initiate();
    tree->text = text;
    tree->document.load_buffer_inplace(tree->text.data(), tree->text.size(), parseOptions,
                                       pugi::encoding_utf8);
}

void DoxDocument::TransIndent(const char* indent)
{
    indentation = indent == nullptr ? "\t" : indent;
}

void DoxDocument::AddInstruction(const char* target, const CString& text)
{
    pugi::xml_node instruction = tree->document.append_child(pugi::node_pi);
    instruction.set_name(target);
    instruction.set_value(text.c_str());
}

CString DoxDocument::Instruction(const char* target) const
{
    if (!tree) return {};
    for (const pugi::xml_node& node : tree->document) {
        if (node.type() == pugi::node_pi && CString(node.name()) == target) return node.value();
    }
    return {};
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
