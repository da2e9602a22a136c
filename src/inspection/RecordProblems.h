#pragma once

#include "platform/files/FileLock.h"

class ToviData;

/// Why an inspection could not be taken up or saved, each in one sentence that says what to do.

/// \p reason is what ToviData::LoadExamination of \p record gave.
TOVI_EXPORT CString WhyRecordNotLoaded(ToviData& document, const CString& record, int reason);

/// That \p record is another delivery's than \p document, and wherein that shows.
CString RecordIsOther(ToviData& document, const CString& record);

/// \p reason is what ToviData::SaveExamination or ReturnExam to \p record gave.
TOVI_EXPORT CString WhyRecordNotSaved(const CString& record, int reason);

/// \p holder has the record and didn't give it back in time.
TOVI_EXPORT CString WhyRecordHeld(const CString& record, const LockHolder& holder);

/// Somebody who takes no notice of the lock has changed the record since it was loaded.
TOVI_EXPORT CString WhyRecordChanged(const CString& record);

/// That \p holder has the record, for somebody who waits for it.
CString RecordIsHeld(const CString& record, const LockHolder& holder);

/// The folder in which the file \p path stands: "." for a bare name.
TOVI_EXPORT CString FolderOfFile(const CString& path);
