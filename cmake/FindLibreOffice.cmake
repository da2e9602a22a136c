# Finds LibreOffice's development kit and gives:
#   LibreOffice_FOUND
#   LibreOffice::uno   its interface for C++; links to the libraries where they are installed
# The headers of the interface are made from its descriptions, into the build folder.

find_path(LibreOffice_PROGRAM fundamentalrc
          PATHS /usr/lib/libreoffice/program /usr/lib64/libreoffice/program /opt/libreoffice/program)
find_path(LibreOffice_INCLUDE sal/types.h PATH_SUFFIXES libreoffice
          HINTS ${LibreOffice_PROGRAM}/../sdk/include)
find_program(LibreOffice_CPPUMAKER cppumaker HINTS ${LibreOffice_PROGRAM}/../sdk/bin)
foreach(library IN ITEMS cppuhelpergcc3 cppu salhelpergcc3 sal)
    find_library(LibreOffice_${library} uno_${library} HINTS ${LibreOffice_PROGRAM}/../sdk/lib)
    list(APPEND libreoffice_libraries LibreOffice_${library})
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LibreOffice REQUIRED_VARS
    LibreOffice_PROGRAM LibreOffice_INCLUDE LibreOffice_CPPUMAKER ${libreoffice_libraries})
mark_as_advanced(LibreOffice_PROGRAM LibreOffice_INCLUDE LibreOffice_CPPUMAKER ${libreoffice_libraries})

if(LibreOffice_FOUND AND NOT TARGET LibreOffice::uno)
    set(types ${LibreOffice_PROGRAM}/types.rdb ${LibreOffice_PROGRAM}/types/offapi.rdb)
    set(made ${CMAKE_BINARY_DIR}/uno-headers)
    add_custom_command(OUTPUT ${made}.made
        COMMAND ${LibreOffice_CPPUMAKER} -Gc -O${made} ${types}
        COMMAND ${CMAKE_COMMAND} -E touch ${made}.made
        DEPENDS ${types} COMMENT "Making the headers of LibreOffice's interface")
    add_custom_target(uno_headers DEPENDS ${made}.made)
    file(MAKE_DIRECTORY ${made})
    add_library(LibreOffice::uno INTERFACE IMPORTED)
    target_include_directories(LibreOffice::uno SYSTEM INTERFACE ${made} ${LibreOffice_INCLUDE})
    target_compile_definitions(LibreOffice::uno INTERFACE UNX GCC LINUX CPPU_ENV=gcc3)
    foreach(library IN LISTS libreoffice_libraries)
        target_link_libraries(LibreOffice::uno INTERFACE ${${library}})
    endforeach()
    target_link_options(LibreOffice::uno INTERFACE -Wl,-rpath,${LibreOffice_PROGRAM})
    add_dependencies(LibreOffice::uno uno_headers)
endif()
