// Sections and entries of a profile: what is written reads as the same.

#include "Fuzz.h"

#include "platform/store/SectionFile.h"

void Try(std::string_view input)
{
    SectionFile file;
    static_cast<void>(file.Parse(input));
    const CString bytes = file.ToBytes();
    SectionFile again;
    if (bytes.size() > SectionFile::maximumSize) return;
    Require(again.Parse(bytes), "what is written is sound");
    Require(again.ToBytes() == bytes, "and the same");
    // Any text comes back as the value that it was.
    SectionFile kept;
    const CString text(input);
    const CString name = text.substr(0, 8);
    kept.Set(name, name, text);
    Require(again.Parse(kept.ToBytes()), "any value can be written");
    const CString* value = again.Find(name, name);
    Require(value != nullptr && *value == text, "and comes back");
}
