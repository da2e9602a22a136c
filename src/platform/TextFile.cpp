#include "platform/TextFile.h"

#include "platform/CaseFallback.h"
#include "platform/MibFile.h"
#include "platform/TextEncoding.h"

#include <array>

namespace
{
constexpr std::size_t largestUtf16File = std::size_t{1} << 30;

struct CloseFile
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
} // namespace

/// What was read ahead. A decoded UTF-16 file is one block without a file behind it.
struct TextFile::Block
{
    std::unique_ptr<std::FILE, CloseFile> file;
    CString bytes;
    std::size_t at = 0;

    bool Refill()
    {
        std::array<char, 1 << 16> buffer;
        const std::size_t got =
            file ? std::fread(buffer.data(), 1, buffer.size(), file.get()) : std::size_t{0};
        bytes.assign(buffer.data(), got);
        at = 0;
        return got > 0;
    }
};

TextFile::TextFile(const CString& path) : block(std::make_unique<Block>())
{
    if (!MibIsFileExist(path)) return;
    block->file.reset(std::fopen(ExistingPath(path).c_str(), "rbe"));
    if (!block->file) return;
    isOpen = true;
    block->Refill();
    const CString encoding = DetectEncoding(std::string_view(block->bytes).substr(0, 4));
    if (!encoding.starts_with("UTF-16")) return;
    block->file.reset();
    const auto bytes = MibReadFile(path, largestUtf16File);
    block->bytes = bytes ? DecodeText(*bytes, encoding).value_or("") : "";
}

TextFile::~TextFile() = default;

int TextFile::NextByte()
{
    if (block->at == block->bytes.size() && !block->Refill()) return EOF;
    return static_cast<unsigned char>(block->bytes[block->at++]);
}

bool TextFile::ReadLine(CString& line)
{
    line.clear();
    int byte = NextByte();
    if (byte == EOF) return false;
    for (; byte != EOF && byte != '\n'; byte = NextByte()) {
        if (line.size() < longestLine) line += static_cast<char>(byte);
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
}

CString ReadTextHead(const CString& path, std::size_t limit)
{
    if (!MibIsFileExist(path)) return {};
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(ExistingPath(path).c_str(), "rbe"));
    if (!file) return {};
    std::string bytes(limit, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    const bool isDoubleByte =
        DetectEncoding(std::string_view(bytes).substr(0, 4)).starts_with("UTF-16");
    // No multi-byte character of the other encodings holds the byte of a ">".
    bytes.resize(isDoubleByte ? bytes.size() & ~std::size_t{1} : bytes.rfind('>') + 1);
    return DecodeText(bytes).value_or("");
}
