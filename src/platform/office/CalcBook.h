#pragma once

#include "platform/office/Office.h"
#include "platform/sheets/SpreadsheetApplication.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>

/// A workbook in a LibreOffice that outlives it.
class CalcBook : public SpreadsheetBook
{
public:
    /// Opens \p path; throws com::sun::star::uno::Exception when that fails.
    CalcBook(const Office& running, const CString& path);
    CalcBook(const CalcBook&) = delete;
    CalcBook& operator=(const CalcBook&) = delete;
    ~CalcBook() override;

    bool RepeatRows(int rows, int columns, int times) override;
    bool WriteTexts(int firstRow, const std::vector<std::vector<CString>>& rows) override;
    bool Save(const CString& path, SpreadsheetFormat format) override;

private:
    /// Gives all rows the heights of those of the first \p rows.
    void RepeatHeights(int rows, int times);
    void BreakPages(int rows, int times);
    void Print(int rows, int columns);
    void DropImportedNames();

    const Office& office;
    com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument> document;
    com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet> sheet;
};
