#pragma once

#include "platform/Text.h"

class ToviData;

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

/// Why the delivery \p document has no copy of its index file, in a sentence as above.
TOVI_EXPORT CString WhyNoIndexCopy(ToviData& document);

/// What the page tells of its stylesheet where that isn't made for the index file's DTD, as a
/// sentence; empty where it is.
TOVI_EXPORT CString NoteOnStylesheet(ToviData& document);

/// What is wrong for a browser with the stylesheet \p stylesheet of the index file \p index, in a
/// sentence as above; empty when it is installed.
TOVI_EXPORT CString WhyNoStylesheet(const CString& index, const CString& stylesheet);
