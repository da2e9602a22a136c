#pragma once

#include "sample/SamplePhoto.h"
#include "sample/SampleXml.h"

/// One disc, from 1, of those that a delivery is spread over.
struct SampleDisc
{
    int number = 1;
    int count = 1;
};

/// Writes the index file (INDEX_C.XML) of one disc from its DOCTYPE to its end.
void WriteIndex(SampleXml& xml, const SampleSchema& schema, const SampleWork& work,
                const SampleDisc& disc);

/// The DTD of the index file, see DtdText.
CString IndexDtdText(const SampleSchema& schema);
