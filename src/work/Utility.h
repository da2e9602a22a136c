#pragma once

#include "platform/host/CWnd.h"
#include "platform/text/Text.h"

/// The folder chooser without a field to type into.
class TOVI_EXPORT Utility
{
public:
    /// Lets the user choose a folder in a window titled \p title, starting at \p folder, in front
    /// of \p parent (may be null). True when one was chosen, which then stands in \p folder; false,
    /// with \p folder left alone, when the user cancelled or there is nobody to ask.
    static bool BrowseForFolder(CString& folder, CWnd* parent, const CString& title);
};

/// The folder chooser with a field to type a path into.
class TOVI_EXPORT Utility2
{
public:
    /// As Utility::BrowseForFolder, with a title of its own.
    static bool BrowseForFolder(CString& folder, CWnd* parent);
};
