#pragma once

#include "intake/IntakeDelivery.h"

/// What the different clocks say of when a photograph was taken, and what of that doesn't fit. A
/// fact is what two texts say differently; a hint is what may have a harmless reason. None is a
/// verdict.

/// Each in the form "2023-06-01 10:20:30", or as it is written where it tells no moment; empty
/// where there is none.
struct DateRungs
{
    /// 撮影年月日.
    CString told;
    CString exif;
    CString digitized;
    CString changed;
    /// In UTC, with a "Z" behind it.
    CString gps;
    /// The last change of the file, in local time.
    CString file;
};

struct DateFinding
{
    /// Names the kind of finding, as "exif-differs".
    const char* kind;
    bool isFact;
    CString text;
};

struct DatedPhoto
{
    DateRungs rungs;
    std::vector<DateFinding> findings;
};

/// The ladders of all photographs of \p delivery, by their index. Reads the heads of the files on
/// all cores; \p tell hears how many are done. False from it ends the work with nothing.
TOVI_EXPORT std::vector<DatedPhoto>
ReadDateLadder(const IntakeDelivery& delivery, const std::function<bool(int done, int all)>& tell);
