#pragma once

#include "platform/files/WriteFailure.h"
#include "platform/text/Text.h"

#include <functional>
#include <optional>

/// File functions. Paths use "/". Wherever a file or folder is asked for that isn't there under
/// exactly this name, one whose name differs only in letter case answers in its place.

/// Makes \p path end in a path separator, with every "\" in it turned to "/". An empty path stays.
TOVI_EXPORT void MibNormalDir(CString& path);

/// \p path from the root on, without "." and ".."; an empty path stays.
TOVI_EXPORT CString MibAbsolutePath(const CString& path);

/// Takes the last folder (or file) off \p path; the result ends in a path separator. The root and a
/// path without a folder stay as they are.
TOVI_EXPORT void MibParentDir(CString& path);

/// True when \p path is a regular file.
TOVI_EXPORT bool MibIsFileExist(const CString& path);

/// True when \p path is a folder.
TOVI_EXPORT bool MibIsFolderExist(const CString& path);

/// Makes the folder \p path and those above it that are missing, but none in a delivery unless
/// \p intoDelivery allows it. True when it is there afterwards.
TOVI_EXPORT bool MibCreateDirectory(const CString& path,
                                    IntoDelivery intoDelivery = IntoDelivery::Refused);

/// The full paths of what in \p folder fits \p pattern ("*" any text, "?" any one byte, no regard
/// to letter case), in the order of their names. \p isWhole, unless null, tells whether the folder
/// could be listed to its end; one that isn't there can.
TOVI_EXPORT CStringArray MibFileFind(const CString& folder, const CString& pattern,
                                     bool* isWhole = nullptr);

/// The extension of \p path with its dot, as it is written; empty when there is none.
TOVI_EXPORT CString MibGetExt(const CString& path);

/// The file name of \p path without folder and extension.
TOVI_EXPORT CString MibGetFileTitle(const CString& path);

/// The file name of \p path without its folder.
TOVI_EXPORT CString MibGetFileName(const CString& path);

/// The folder of the running program, ending in a path separator; empty when it can't be had.
TOVI_EXPORT CString MibProgramPath();

/// The full path of \p name in the folder of the program, for code to be run or loaded; empty when
/// that folder isn't known by its full path: code is never looked for in the current folder.
CString MibBesideProgram(const CString& name);

/// True when \p path leads, symbolic links followed, to \p folder itself or something inside it.
/// False too when either doesn't exist.
TOVI_EXPORT bool MibIsInside(const CString& folder, const CString& path);

/// True when \p path leads, symbolic links followed, to a regular file inside \p folder, which ends
/// in a path separator. Nothing is remembered from call to call, and any thread may ask.
TOVI_EXPORT bool MibIsFileInside(const CString& folder, const CString& path);

/// The absolute path of the file that \p path leads to, symbolic links followed; the file itself
/// needs not be there. Empty when its folder isn't.
TOVI_EXPORT CString MibTargetPath(const CString& path);

/// The local date of the last change of the file \p path as YYYY-MM-DD; empty when there is no
/// file.
TOVI_EXPORT CString MibModificationDate(const CString& path);

/// True when \p path exists and its owner has not been given the right to write it.
TOVI_EXPORT bool MibIsReadOnly(const CString& path);

/// The size of the regular file \p path in bytes; 0 when there is none.
TOVI_EXPORT std::size_t MibFileSize(const CString& path);

/// Deletes the file \p path. True when it isn't there afterwards.
TOVI_EXPORT bool MibDeleteFile(const CString& path);

/// The bytes of the regular file \p path; nothing when it can't be read or has more than \p limit
/// bytes.
TOVI_EXPORT std::optional<std::string> MibReadFile(const CString& path, std::size_t limit);

/// True when both regular files have the same bytes, at most \p limit of them. False too when one
/// can't be read.
bool MibHaveSameBytes(const CString& left, const CString& right, std::size_t limit);

/// Hands the bytes of the regular file \p path to \p take in blocks, from the front, until it
/// returns false. False when that happened, when the file can't be read or has more than \p limit
/// bytes.
bool MibReadBlocks(const CString& path, std::size_t limit,
                   const std::function<bool(std::string_view)>& take);
