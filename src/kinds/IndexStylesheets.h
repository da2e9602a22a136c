#pragma once

#include "kinds/PhotoXMLType.h"
#include "platform/text/Text.h"

#include <functional>

/// The folder beside the program that holds the stylesheets, with a separator at its end.
constexpr const char* stylesheetFolder = "XSLPLATE/";

/// An index file has some kilobytes; one with more bytes than this counts as one that can't be
/// read.
constexpr std::size_t largestIndexFile = std::size_t{64} << 20;

/// The delivery's index file in \p folder: the last that is named as one, or empty. \p
/// tellNotListed, unless empty, hears the patterns of names that could not be looked for.
CString FindIndexFile(const CString& folder,
                      const std::function<void(const CString&)>& tellNotListed = {});

/// The line at the front of the index file \p indexPath (see FindHeadLine) that tells its kind: the
/// first one that names the DOCTYPE of a 工事 or a 業務. Empty when none does or the file can't be
/// read.
CString ReadIndexDoctypeLine(const CString& indexPath);

/// The stylesheet for an index file.
struct IndexStylesheet
{
    /// The path below stylesheetFolder; empty when there is none.
    CString path;
    /// The file's DTD, if it is one of a number that isn't known, for which the newest stylesheet
    /// of its family and kind stands in; else empty.
    CString unknownDtd;
};

/// The stylesheet that shows an index file with \p doctypeLine in \p family.
TOVI_EXPORT IndexStylesheet FindIndexStylesheet(PhotoXMLType family, const CString& doctypeLine);
