#pragma once

#include "items/ToviItemDef.h"

/// Appends the definitions that the file \p path (READITEM.XML) lists under \p section to \p out;
/// none when there is no such section. False when the file can't be read.
///
/// A record that lacks a field takes it over from the record before it, and a text outside a
/// field's vocabulary leaves the field as it stood.
bool ReadItemDefinitions(const CString& path, const CString& section, CArray<Definition>& out);
