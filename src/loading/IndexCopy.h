#pragma once

#include "platform/text/Text.h"

/// Makes the copy of the index file \p indexPath in the work area that names the stylesheet \p
/// stylesheetPath as its own, with that stylesheet and the DTD of the index file beside it. Every
/// index file has a folder of its own there, in which its copy stays for thirty days behind the
/// last time that it was made: a browser or a script goes on with it when the program has ended.
///
/// Returns the copy's full path; empty when \p stylesheetPath names no folder, when there is no
/// work folder, or when a file can't be read or written.
CString MakeIndexCopy(const CString& indexPath, const CString& stylesheetPath);

/// The folder of all copies; empty when there is no work folder.
CString IndexCopyFolder();

/// \p xml, the bytes of an XML file in any of the encodings that deliveries come in, with an
/// instruction that names the stylesheet \p name (in ASCII): in place of the file's own, else in
/// front of the root element, which the attribute DTD_version tells. A file with neither comes out
/// as it is. The last line ends in a line feed, unless it is cut off inside a character.
std::string WithStylesheet(std::string xml, const CString& name);
