#include "platform/office/CalcBook.h"

#include "platform/office/UnoText.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangeMovement.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/sheet/XPrintAreas.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/XCloseable.hpp>

using namespace com::sun::star;

namespace
{
/// Excel takes no more breaks in a sheet; behind them the height of the rows makes the pages.
constexpr int mostPageBreaks = 1026;

using Properties = uno::Reference<beans::XPropertySet>;

template <typename T>
uno::Sequence<T> SequenceOf(std::initializer_list<T> elements)
{
    return {elements.begin(), static_cast<sal_Int32>(elements.size())};
}

beans::PropertyValue Value(const char* name, const uno::Any& value)
{
    return {ToUno(name), -1, value, beans::PropertyState_DIRECT_VALUE};
}

const char* FilterName(SpreadsheetFormat format)
{
    switch (format) {
    case SpreadsheetFormat::Xlsx:
        return "Calc MS Excel 2007 XML";
    case SpreadsheetFormat::Ods:
        return "calc8";
    case SpreadsheetFormat::Pdf:
        return "calc_pdf_Export";
    case SpreadsheetFormat::Xls:
        break;
    }
    return "MS Excel 97";
}

/// Answers whether the office did \p work, which fails as well when it has died.
template <typename Work>
bool Succeeds(Work work)
{
    try {
        work();
        return true;
    } catch (const uno::Exception&) {
        return false;
    }
}

uno::Sequence<uno::Any> CellsOf(const std::vector<CString>& texts)
{
    uno::Sequence<uno::Any> cells(static_cast<sal_Int32>(texts.size()));
    uno::Any* cell = cells.getArray();
    for (const CString& text : texts) *cell++ <<= ToUno(text);
    return cells;
}

Properties Rows(const uno::Reference<table::XCellRange>& range)
{
    const uno::Reference<table::XColumnRowRange> all(range, uno::UNO_QUERY_THROW);
    return {all->getRows(), uno::UNO_QUERY_THROW};
}
} // namespace

CalcBook::CalcBook(const Office& running, const CString& path) : office(running)
{
    const CallLimit limit = office.LimitCalls();
    const auto how =
        SequenceOf({Value("Hidden", uno::Any(true)),
                    Value("MacroExecutionMode", uno::Any(document::MacroExecMode::NEVER_EXECUTE)),
                    Value("UpdateDocMode", uno::Any(document::UpdateDocMode::NO_UPDATE))});
    document.set(office.Desktop()->loadComponentFromURL(FileUrl(path), "_blank", 0, how),
                 uno::UNO_QUERY_THROW);
    const uno::Reference<container::XIndexAccess> sheets(document->getSheets(),
                                                         uno::UNO_QUERY_THROW);
    sheet.set(sheets->getByIndex(0), uno::UNO_QUERY_THROW);
}

CalcBook::~CalcBook()
{
    Succeeds([this] {
        const CallLimit limit = office.LimitCalls();
        const uno::Reference<util::XCloseable> closeable(document, uno::UNO_QUERY_THROW);
        closeable->close(true);
    });
}

bool CalcBook::RepeatRows(int rows, int columns, int times)
{
    return Succeeds([=, this] {
        const uno::Reference<sheet::XCellRangeMovement> cells(sheet, uno::UNO_QUERY_THROW);
        const uno::Reference<sheet::XCellRangeAddressable> block(
            sheet->getCellRangeByPosition(0, 0, columns - 1, rows - 1), uno::UNO_QUERY_THROW);
        const table::CellRangeAddress source = block->getRangeAddress();
        for (int i = 1; i < times; ++i) {
            const CallLimit limit = office.LimitCalls();
            cells->copyRange({source.Sheet, 0, rows * i}, source);
        }
        if (times > 1) RepeatHeights(rows, times);
        BreakPages(rows, times);
        Print(rows * times, columns);
    });
}

void CalcBook::RepeatHeights(int rows, int times)
{
    const rtl::OUString height = "Height";
    const auto rowsOf = [this](int first, int count) {
        return Rows(sheet->getCellRangeByPosition(0, first, 0, first + count - 1));
    };
    const uno::Any usual = rowsOf(rows - 1, 1)->getPropertyValue(height);
    rowsOf(rows, rows * (times - 1))->setPropertyValue(height, usual);
    for (int row = 0; row < rows; ++row) {
        const uno::Any own = rowsOf(row, 1)->getPropertyValue(height);
        for (int i = 1; own != usual && i < times; ++i) {
            const CallLimit limit = office.LimitCalls();
            rowsOf(row + rows * i, 1)->setPropertyValue(height, own);
        }
    }
}

void CalcBook::BreakPages(int rows, int times)
{
    for (int i = 1; i < times && i <= mostPageBreaks; ++i) {
        const CallLimit limit = office.LimitCalls();
        Rows(sheet->getCellRangeByPosition(0, rows * i, 0, rows * i))
            ->setPropertyValue("IsStartOfNewPage", uno::Any(true));
    }
}

void CalcBook::Print(int rows, int columns)
{
    const CallLimit limit = office.LimitCalls();
    const uno::Reference<sheet::XPrintAreas> areas(sheet, uno::UNO_QUERY_THROW);
    const uno::Reference<sheet::XCellRangeAddressable> all(
        sheet->getCellRangeByPosition(0, 0, columns - 1, rows - 1), uno::UNO_QUERY_THROW);
    areas->setPrintAreas(SequenceOf({all->getRangeAddress()}));
    DropImportedNames();
}

// Opening an Excel file leaves its print area as a name, too, which would be the old area's.
void CalcBook::DropImportedNames()
{
    const Properties properties(sheet, uno::UNO_QUERY_THROW);
    const uno::Reference<sheet::XNamedRanges> names(properties->getPropertyValue("NamedRanges"),
                                                    uno::UNO_QUERY_THROW);
    for (const rtl::OUString& name : names->getElementNames()) {
        if (name.startsWith("Excel_BuiltIn_")) names->removeByName(name);
    }
}

bool CalcBook::WriteTexts(int firstRow, const std::vector<std::vector<CString>>& rows)
{
    return Succeeds([&] {
        const CallLimit limit = office.LimitCalls();
        const auto count = static_cast<sal_Int32>(rows.size());
        const auto columns = static_cast<sal_Int32>(rows.front().size());
        uno::Sequence<uno::Sequence<uno::Any>> texts(count);
        uno::Sequence<uno::Any>* row = texts.getArray();
        for (const std::vector<CString>& cells : rows) *row++ = CellsOf(cells);
        const uno::Reference<sheet::XCellRangeData> range(
            sheet->getCellRangeByPosition(0, firstRow - 1, columns - 1, firstRow + count - 2),
            uno::UNO_QUERY_THROW);
        range->setDataArray(texts);
    });
}

bool CalcBook::Save(const CString& path, SpreadsheetFormat format)
{
    return Succeeds([&] {
        const CallLimit limit = office.LimitCalls();
        const uno::Reference<frame::XStorable> storable(document, uno::UNO_QUERY_THROW);
        storable->storeToURL(FileUrl(path),
                             SequenceOf({Value("FilterName", uno::Any(ToUno(FilterName(format)))),
                                         Value("Overwrite", uno::Any(true))}));
    });
}
