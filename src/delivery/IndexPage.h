#pragma once

#include "platform/text/Text.h"

class ToviData;
class ToviItemDef;

/// The index file of a delivery on its way to a browser.
struct IndexPage
{
    /// The HTML file to show; empty when there is none.
    CString path;
    /// Why not, in one sentence that says what to do.
    CString problem;
};

/// Makes the page of the delivery \p document in the work area, beside the copy of its index file
/// (see MakeIndexCopy) and as lasting: that copy turned to HTML by its stylesheet, since browsers
/// don't apply stylesheets to local files any more.
TOVI_EXPORT IndexPage MakeIndexPage(ToviData& document);

/// Why a delivery has no copy of its index file, in a sentence as above; \p index and \p stylesheet
/// are what GetPathAndName of its definitions \p def has left.
TOVI_EXPORT CString WhyNoIndexCopy(const ToviItemDef& def, const CString& index,
                                   const CString& stylesheet);

/// What the page tells of its stylesheet where that isn't made for the DTD of the index file
/// \p index of a delivery with \p def, as a sentence; empty where it is.
TOVI_EXPORT CString NoteOnStylesheet(const ToviItemDef& def, const CString& index);

/// What is wrong for a browser with the stylesheet \p stylesheet of the index file \p index, in a
/// sentence as above; empty when it is installed.
TOVI_EXPORT CString WhyNoStylesheet(const CString& index, const CString& stylesheet);
