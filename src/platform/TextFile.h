#pragma once

#include "platform/Text.h"

#include <cstdio>
#include <memory>

/// A text file that is read line by line, from the front. A file in UTF-16 (told by its byte order
/// mark) comes out in UTF-8, every other as it stands, which is enough to search it for ASCII
/// words.
class TextFile
{
public:
    explicit TextFile(const CString& path);
    ~TextFile();
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    bool IsOpen() const { return isOpen; }

    /// The next line without its line end. False at the end of the file. Of a line beyond
    /// longestLine bytes the rest is left out.
    bool ReadLine(CString& line);

    static constexpr std::size_t longestLine = std::size_t{1} << 20;

private:
    int NextByte();

    struct Block;
    std::unique_ptr<Block> block;
    bool isOpen = false;
};

/// The text at the front of the file \p path, up to \p limit bytes of it, in UTF-8. It ends behind
/// a whole tag. Empty when the file can't be read or its bytes are not in its encoding.
CString ReadTextHead(const CString& path, std::size_t limit);
