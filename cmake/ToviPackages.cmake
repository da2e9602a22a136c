# The Debian packages, which scripts/package makes and checks: tovi, and tovi-report with the office's module, so
# that nobody needs LibreOffice who makes no reports. There is no package for development: the library's headers
# are the inside of the programs and promise nothing from one version to the next.
set(package_files ${CMAKE_BINARY_DIR}/package)
set(SOURCE_DATE $ENV{SOURCE_DATE_EPOCH})
if(NOT SOURCE_DATE)
    execute_process(COMMAND git -C ${PROJECT_SOURCE_DIR} log -1 --format=%ct
                    OUTPUT_VARIABLE SOURCE_DATE OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
set(CPACK_PACKAGE_CONTACT "The Tovi maintainers <tovi@localhost.localdomain>")
find_program(GZIP gzip REQUIRED)
find_program(DATE date REQUIRED)
execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C ${DATE} -u -R -d @${SOURCE_DATE}
                OUTPUT_VARIABLE PACKAGE_DATE OUTPUT_STRIP_TRAILING_WHITESPACE)
configure_file(cmake/package/changelog.in ${package_files}/changelog)
execute_process(COMMAND ${GZIP} -9nkf ${package_files}/changelog)
foreach(package IN ITEMS tovi tovi-report)
    set(component)
    if(package STREQUAL tovi-report)
        set(component COMPONENT report)
    endif()
    install(FILES ${package_files}/changelog.gz cmake/package/copyright DESTINATION share/doc/${package}
            ${component})
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tovi)
set(CPACK_PACKAGE_VENDOR "The Tovi maintainers")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Unspecified)
if(TARGET ToviSheet)
    list(APPEND CPACK_COMPONENTS_ALL report)
endif()
install(FILES cmake/package/tovi-report.overrides DESTINATION share/lintian/overrides RENAME tovi-report
        COMPONENT report)
# Files have one time, whenever they were made.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/package/Settle.cmake)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})

# Beside the libraries, which are found by what is linked: what is loaded or looked for at run time.
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME tovi)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_DEPENDS
    "fonts-ipafont-gothic | fonts-japanese-gothic, qt6-image-formats-plugins, qt6-translations-l10n")
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_SUGGESTS "tovi-report")
set(CPACK_COMPONENT_UNSPECIFIED_DESCRIPTION
"inspection of site photographs of Japanese public works
Opens the photographs of an electronic delivery (PHOTO.XML, PIC, DRA) of any
generation of the standards, with their items, in the classification tree,
for inspection in windows (tovi-viewer) or from scripts (tovi). It never
changes a delivered file.")
set(CPACK_DEBIAN_REPORT_PACKAGE_NAME tovi-report)
set(CPACK_DEBIAN_REPORT_PACKAGE_DEPENDS
    "tovi (= ${PROJECT_VERSION}), libreoffice-calc-nogui | libreoffice-calc")
set(CPACK_COMPONENT_REPORT_DESCRIPTION
"check reports of Tovi as spreadsheets
Lets tovi and tovi-viewer write the list of an inspection's results to Excel,
OpenDocument and PDF files through LibreOffice.")
include(CPack)
