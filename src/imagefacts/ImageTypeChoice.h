#pragma once

#include "imagefacts/ToviImageCheckCommon.h"

/// The numbers of the types of verifiers that the stored text \p text names, in its order: its
/// first 19 bytes are cut at ",", and each piece that isn't empty counts as far as it is a decimal
/// number, by its low eight bits. What is no number counts as 0.
TOVI_EXPORT CWordArray ParseEditCheckTypes(std::string_view text);

/// True when \p text is made of the numbers of types alone, so that the chain is what it says.
TOVI_EXPORT bool IsEditCheckTypes(const CString& text);

/// \p types as that text: decimal numbers joined by ",".
TOVI_EXPORT CString EditCheckTypesText(const CWordArray& types);

/// One line of the list in which the user ticks the types to check by.
struct ImageTypeRow
{
    ToviImageCheckCommon::CameraType type;
    CString name;
    bool ticked;
};

/// The lines of that list, with those of \p chosen ticked. The blackboard's is there only where its
/// verifier is.
TOVI_EXPORT std::vector<ImageTypeRow> ImageTypeRows(const CWordArray& chosen);

/// The types of the lines that are ticked, in the order of the list, which is that of the chain.
TOVI_EXPORT CWordArray TickedTypes(const std::vector<ImageTypeRow>& rows);

/// What the list says of the line \p selected; null when none is.
TOVI_EXPORT CString ImageTypeDescription(const ImageTypeRow* selected);
