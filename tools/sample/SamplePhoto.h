#pragma once

#include "sample/SampleSchema.h"

#include <chrono>
#include <ostream>

/// An element of a photograph with its text.
struct SampleItem
{
    CString title;
    CString value;

    bool operator==(const SampleItem&) const = default;
};

inline void PrintTo(const SampleItem& item, std::ostream* out)
{
    *out << item.title << "=\"" << item.value << '"';
}

/// The elements of one group that are written, in the order of the file.
struct SampleGroup
{
    CString name;
    std::vector<SampleItem> items;

    /// The first value under \p title; empty when there is none.
    CString Value(std::string_view title) const;
};

struct SamplePhoto
{
    std::vector<SampleGroup> groups;
    /// XML text that stands in front of the photograph's end tag.
    CString extraXml;
    /// When it was taken, whether 撮影年月日 tells it or not.
    std::chrono::sys_days day;
    /// The figures on the blackboard; empty when nothing is measured.
    CString design;
    CString measured;

    /// The first value under \p title in all groups; empty when there is none.
    CString Value(std::string_view title) const;
};

/// The work that a delivery is about.
struct SampleWork
{
    CString name;
    CString contractor;
    std::chrono::sys_days firstDay;
    std::chrono::sys_days lastDay;
};

SampleWork MakeSampleWork(const SampleSchema& schema, unsigned seed);

/// Which photograph of how many, and the reference drawings that belong to it: those from
/// firstDrawing up to but not including endDrawing, counted from 0.
struct SamplePlace
{
    int photo;
    int photos;
    int firstDrawing;
    int endDrawing;
    /// All drawings of the delivery.
    int drawings;
    int disc;
    /// Nothing is left out, and nothing stands outside of what the standards allow.
    bool tidy = false;
};

/// The photograph at \p place with values as they are found in real deliveries. The same arguments
/// always give the same photograph.
SamplePhoto MakeSamplePhoto(const SampleSchema& schema, const SampleWork& work, unsigned seed,
                            const SamplePlace& place);

/// \p day as CCYY-MM-DD.
CString DateText(std::chrono::sys_days day);
