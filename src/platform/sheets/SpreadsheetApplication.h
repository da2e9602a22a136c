#pragma once

#include "platform/text/Text.h"

#include <functional>
#include <memory>
#include <vector>

/// The kinds of file that a workbook is saved as.
enum class SpreadsheetFormat
{
    /// Excel 97 to 2003
    Xls,
    Xlsx,
    Ods,
    Pdf
};

/// A workbook that is open in a spreadsheet application, as far as its first sheet goes. Rows count
/// from 1. An operation returns false when it failed or the application has died, behind which
/// every other one fails as well; an application that doesn't answer for 30 s is killed. Its end
/// closes the workbook without saving.
class SpreadsheetBook
{
public:
    virtual ~SpreadsheetBook() = default;

    /// Copies the first \p rows rows of the first \p columns columns downwards, so that they stand
    /// there \p times times in all, with their heights, each on a printed page of its own.
    [[nodiscard]] virtual bool RepeatRows(int rows, int columns, int times) = 0;
    /// Writes texts, never formulas or numbers, from the first column of \p firstRow on. All rows
    /// have the same number of texts, and there is at least one.
    [[nodiscard]] virtual bool WriteTexts(int firstRow,
                                          const std::vector<std::vector<CString>>& rows) = 0;
    /// Writes the workbook to the file \p path, which takes no part in the workbook's life. Excel's
    /// formats keep the view that the workbook was opened with.
    [[nodiscard]] virtual bool Save(const CString& path, SpreadsheetFormat format) = 0;
};

/// A spreadsheet application without a window. Its end closes it and waits until it has gone.
class SpreadsheetApplication
{
public:
    virtual ~SpreadsheetApplication() = default;

    /// Opens the workbook \p path; null when that fails. It is closed before the application.
    virtual std::unique_ptr<SpreadsheetBook> Open(const CString& path) = 0;
};

/// Starts the spreadsheet application, which keeps whatever it needs in the folder \p folder. Null
/// when it isn't installed, doesn't start, or \p giveUp, which is asked many times a second while
/// it starts, says so.
TOVI_EXPORT std::unique_ptr<SpreadsheetApplication>
StartSpreadsheet(const CString& folder, const std::function<bool()>& giveUp);

/// True when an office program has the file \p path open, as it tells others by a file beside it.
TOVI_EXPORT bool IsOpenInOffice(const CString& path);

/// The entry of the module that knows a spreadsheet application, see ToviSheet in
/// src/CMakeLists.txt. It gives up, with null, once \p giveUp says so.
using StartSpreadsheetEntry = SpreadsheetApplication*(const CString& folder,
                                                      const std::function<bool()>& giveUp);
inline constexpr const char* spreadsheetEntryName = "ToviStartSpreadsheet";
inline constexpr const char* spreadsheetModuleName = "libToviSheet.so";
