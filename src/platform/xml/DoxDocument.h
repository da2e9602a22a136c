#pragma once

#include "platform/text/Text.h"

#include <memory>

/// An XML file as a tree in memory. DoxIterator walks and changes it.
class TOVI_EXPORT DoxDocument
{
public:
    DoxDocument();
    ~DoxDocument();
    DoxDocument(const DoxDocument&) = delete;
    DoxDocument& operator=(const DoxDocument&) = delete;

    /// Makes an empty document ready for Load. Always true.
    bool Initiate();

    /// Has Load refuse files of more than \p bytes at once.
    void LimitSize(std::size_t bytes) { largestFile = bytes; }

    /// Has Load keep the processing instructions, which it skips otherwise.
    void KeepInstructions() { keepsInstructions = true; }

    /// Reads the file \p path. False when it is missing, no regular file, too large, not in its
    /// declared encoding or not well formed; Problem() then says why. What misleads nobody is let
    /// pass, such as a bare "&" or an entity that isn't known, which stay as they are written.
    /// Nothing outside the file is read: entities and the DTD are left alone. \p validate must be
    /// false; \p errors may be null, else a failure's reason is appended to it.
    [[nodiscard]] bool Load(const CString& path, bool validate, CStringArray* errors);

    /// Takes up \p text, which is well formed XML in UTF-8 and no foreign data.
    void LoadText(std::string_view text);

    /// Has Save put every element on a line of its own, indented by \p indent a level (null: one
    /// tab).
    void TransIndent(const char* indent);

    /// Adds the processing instruction \p target, which Save writes behind the root element. \p
    /// text must not hold "?>".
    void AddInstruction(const char* target, const CString& text);
    /// What the first processing instruction \p target outside the root element says; empty when
    /// there is none or Load didn't keep it.
    CString Instruction(const char* target) const;

    /// Writes the tree to the file \p path in the encoding that its declaration names, whole or not
    /// at all. Shift_JIS loses nothing: what readers of it don't agree on becomes a numeric
    /// character reference, and what no XML file can hold becomes 〓. A file of that name in
    /// another letter case is the one that is replaced. \p flags must be 0; \p result may be null.
    /// False when there is no tree, when it declares another encoding than Shift_JIS or UTF-8, or
    /// when the file can't be written.
    [[nodiscard]] bool Save(const CString& path, unsigned long flags, int* result) const;

    /// Frees the tree. Iterators on it must not be used any more.
    void Terminate();

    /// Why the last Load failed, as the second half of a Japanese sentence; empty after a success.
    const CString& Problem() const { return problem; }

private:
    friend class DoxIterator;
    struct Tree;

    bool Fail(const CString& reason, CStringArray* errors);

    /// More than any delivery or record holds, and little enough for the tree to stay in memory.
    static constexpr std::size_t usualLimit = std::size_t{256} << 20;

    std::unique_ptr<Tree> tree;
    std::size_t largestFile = usualLimit;
    bool keepsInstructions = false;
    CString indentation;
    CString problem;
};
