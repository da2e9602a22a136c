#pragma once

#include "sample/SamplePhoto.h"
#include "sample/SampleXml.h"

/// Writes the delivery's index file (INDEX_C.XML) from its DOCTYPE to its end.
void WriteIndex(SampleXml& xml, const SampleSchema& schema, const SampleWork& work);

/// The DTD of the index file, see DtdText.
CString IndexDtdText(const SampleSchema& schema);
