#pragma once

#include "hosts/cli/Delivery.h"

#include "platform/files/AtomicFile.h"
#include "platform/text/Text.h"

/// The name of an output file that means standard output.
inline constexpr const char* standardOutputName = "-";

/// The exit status that \p path, where a result of \p delivery is to be written, calls for; what
/// isn't ExitDone was told on standard error.
int ExamineOutput(const CString& path, const OpenedDelivery& delivery);

/// Writes what \p produce hands to its sink, as it comes, to the file \p path, or to standard
/// output when that is its name. Returns the exit status; a failure is told on standard error.
int WriteOutput(const CString& path, const std::function<bool(const ByteSink&)>& produce);

/// The same with \p bytes.
int WriteOutput(const CString& path, std::string_view bytes);
