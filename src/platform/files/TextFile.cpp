#include "platform/files/TextFile.h"

#include "platform/files/MibFile.h"
#include "platform/text/Cp932.h"
#include "platform/text/TextEncoding.h"

#include <algorithm>

std::optional<CString> ReadTextFile(const CString& path, std::size_t limit, bool& readable)
{
    // Code page 932 is decoded while it is read, so that the file is not in memory twice. What else
    // comes is kept as it is until the end.
    CString text;
    text.reserve(std::min(MibFileSize(path), limit) * 3 / 2);
    Cp932::Decoder decoder;
    bool isFirst = true;
    bool isCp932 = false;
    bool valid = true;
    const bool complete = MibReadBlocks(path, limit, [&](std::string_view block) {
        if (isFirst) isCp932 = DeclaredEncoding(block) == "CP932";
        isFirst = false;
        if (isCp932) return valid = decoder.Add(block, text);
        text += block;
        return true;
    });
    readable = complete || !valid;
    if (!complete || !decoder.Finish()) return std::nullopt;
    if (isCp932) return text;
    const CString encoding = DetectEncoding(text);
    const bool keepsItsBytes = encoding == "UTF-8" && !text.starts_with("\xEF\xBB\xBF");
    if (!keepsItsBytes) return DecodeText(text, encoding);
    if (!IsUtf8(text)) return std::nullopt;
    return text;
}
