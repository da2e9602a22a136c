#pragma once

#include "platform/Text.h"

class ToviData;

/// Why an inspection could not be taken up or saved, each in one sentence that says what to do.

/// \p reason is what ToviData::LoadExamination of \p record gave.
TOVI_EXPORT CString WhyRecordNotLoaded(const ToviData& document, const CString& record, int reason);

/// \p reason is what ToviData::SaveExamination or ReturnExam to \p record gave.
TOVI_EXPORT CString WhyRecordNotSaved(const CString& record, int reason);

/// The folder in which the file \p path stands: "." for a bare name.
TOVI_EXPORT CString FolderOfFile(const CString& path);
