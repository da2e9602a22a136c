# Reads the table of stylesheets into TOVI_STYLESHEETS, their paths, and makes the source file
# TOVI_STYLESHEET_ROWS of it.

set(table ${PROJECT_SOURCE_DIR}/src/kinds/IndexStylesheets.table)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table})
file(STRINGS ${table} lines REGEX "^[a-z]")
set(TOVI_STYLESHEETS)
set(rows_work)
set(rows_consulting)
foreach(line IN LISTS lines)
    string(REGEX REPLACE " +" ";" cells ${line})
    list(POP_FRONT cells of dtd)
    list(LENGTH cells count)
    if(NOT of MATCHES "^(work|consulting)$" OR NOT count EQUAL 4)
        message(FATAL_ERROR "${table}: this is no row: ${line}")
    endif()
    set(paths)
    foreach(path IN LISTS cells)
        if(path STREQUAL "-")
            list(APPEND paths nullptr)
        else()
            list(APPEND paths "\"${path}\"")
            list(APPEND TOVI_STYLESHEETS ${path})
        endif()
    endforeach()
    list(JOIN paths ", " paths)
    string(APPEND rows_${of} "    {\"${dtd}\", {${paths}}},\n")
endforeach()
list(REMOVE_DUPLICATES TOVI_STYLESHEETS)
set(TOVI_STYLESHEET_ROWS ${CMAKE_CURRENT_BINARY_DIR}/StylesheetRows.cpp)
file(CONFIGURE OUTPUT ${TOVI_STYLESHEET_ROWS} CONTENT [[
#include "kinds/StylesheetRows.h"

namespace
{
constexpr StylesheetRow workRows[] = {
@rows_work@};
constexpr StylesheetRow consultingRows[] = {
@rows_consulting@};
} // namespace

const std::span<const StylesheetRow> workStylesheets = workRows;
const std::span<const StylesheetRow> consultingStylesheets = consultingRows;
]] @ONLY)
