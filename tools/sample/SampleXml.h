#pragma once

#include "platform/text/Text.h"

/// How the elements of an XML file are set out on lines.
enum class SampleLayout
{
    Indented,
    /// Each element on its own line, none indented.
    Flat,
    /// Each child of the root on one line with all that is in it.
    LinePerChild
};

/// Writes XML text piece by piece.
class SampleXml
{
public:
    /// \p lineEnd is put at the end of each line, \p firstDepth tells how deep the first element
    /// stands (0: it is the root).
    SampleXml(SampleLayout lines, CString lineEnd, int firstDepth = 0);

    void Open(std::string_view tag, std::string_view attributes = {});
    void Close(std::string_view tag);
    /// An element with nothing but \p text in it.
    void Leaf(std::string_view tag, std::string_view text);
    /// A line that is XML already, or a comment, or whatever a test wants to stand there.
    void Raw(std::string_view xml);

    const CString& Text() const { return text; }

private:
    void Indent();
    void EndLine();

    SampleLayout layout;
    CString lineBreak;
    int depth;
    CString text;
};
