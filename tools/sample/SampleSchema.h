#pragma once

#include "platform/text/Text.h"

#include <string_view>
#include <vector>

enum class SampleFamily
{
    Mlit,
    Maff,
    Nexco
};

struct SampleElement
{
    std::string_view name;
    std::string_view parent;
    /// How often it stands in its parent: '1', '?', '*' or '+' as in a DTD.
    char occurrence;
};

/// A group of a photograph with its own elements in their order. The group "写真情報" holds those
/// that stand directly in the photograph.
struct SampleGroupSchema
{
    std::string_view name;
    std::vector<SampleElement> elements;
};

/// One of the kinds of delivery: the edition of a standard, named by its section.
struct SampleSchema
{
    std::string_view section;
    SampleFamily family;
    /// The year in which work under this edition begins in the samples.
    int workYear;
    std::string_view photoDtd;
    std::string_view dtdVersion;
    std::string_view indexDtd;
    /// The value of 適用要領基準.
    std::string_view standard;
    /// All elements below the root, parents first, in the order of the file.
    std::vector<SampleElement> elements;
    /// The groups of a photograph in the order of the file.
    std::vector<SampleGroupSchema> photoGroups;

    /// The element \p name, or null when this kind has none.
    const SampleElement* Find(std::string_view name) const;
    std::vector<SampleElement> ChildrenOf(std::string_view parent) const;
};

/// The eleven kinds.
const std::vector<SampleSchema>& SampleSchemas();

/// The kind \p section, or null.
const SampleSchema* FindSampleSchema(std::string_view section);

/// The text of a DTD for \p elements, no two of one name, below the element \p root with its
/// DTD_version, lines ending in LF, without a declaration of the encoding.
CString DtdText(std::string_view root, std::string_view version,
                const std::vector<SampleElement>& elements);
