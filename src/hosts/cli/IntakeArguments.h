#pragma once

#include "hosts/cli/Delivery.h"
#include "hosts/cli/Json.h"

#include "intake/IntakeDelivery.h"

/// What the commands on a received delivery share.

/// \p numbers as an array.
Json NumbersOf(const std::vector<int>& numbers);

/// Tells the user how far \p work has come, under \p title, until it is done. The function that
/// \p work gets says false once the user has stopped it. False when that happened.
bool UnderProgress(const char* title,
                   const std::function<void(const std::function<bool(int, int)>& tell)>& work);

/// A line of a table for spreadsheets, which take no field of it for a formula.
CString CsvLine(const std::vector<CString>& fields);

/// The mark in front of such a table, which tells spreadsheets that it is UTF-8.
inline constexpr const char* csvMark = "\xEF\xBB\xBF";

/// --format json|csv
Option TableFormatOption(std::string& format);
