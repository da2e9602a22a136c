# What every target of ours has in common, and the layers that they are made of.

# The libraries that the platform stands on, beside Qt.
set(platform_libraries pugixml::pugixml PkgConfig::EXIF PkgConfig::ICU PkgConfig::XSLT PNG::PNG JPEG::JPEG
    TBB::tbb SQLite::SQLite3 OpenSSL::Crypto LibArchive::LibArchive)

# The strict compiler switches, and the sanitizers where they are wanted.
add_library(tovi_switches INTERFACE)
target_compile_options(tovi_switches INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
    -Wcast-align -Werror)
# What GCC 12 concludes from optimized code is wrong too often to stop a build.
target_compile_options(tovi_switches INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-error=maybe-uninitialized -Wno-error=stringop-overflow
    -Wno-error=stringop-overread -Wno-error=array-bounds -Wno-error=free-nonheap-object
    -Wno-error=dangling-pointer -Wno-error=use-after-free -Wno-error=null-dereference>)
# What makes a fault in memory hard to use; the sanitizers end the program at the fault itself.
if(NOT TOVI_SANITIZE)
    target_compile_options(tovi_switches INTERFACE
        -fstack-protector-strong $<$<CONFIG:RelWithDebInfo>:-D_FORTIFY_SOURCE=3>)
    target_link_options(tovi_switches INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
endif()
if(TOVI_SANITIZE)
    target_compile_options(tovi_switches INTERFACE
        -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
        -fno-omit-frame-pointer -O1)
    target_link_options(tovi_switches INTERFACE -fsanitize=address,undefined)
endif()
if(TOVI_FUZZ)
    target_compile_options(tovi_switches INTERFACE -fsanitize=fuzzer-no-link)
endif()

# For code that is all templates of others, in tests and tools: to optimize it and to watch its every access
# takes several times as long to compile as it is worth. What it calls of ours is optimized and watched all
# the same.
add_library(tovi_quick_compile INTERFACE)
target_compile_options(tovi_quick_compile INTERFACE -O0 -U_FORTIFY_SOURCE)
if(TOVI_SANITIZE)
    target_compile_options(tovi_quick_compile INTERFACE -fno-sanitize=undefined)
endif()

# tovi_precompile(TARGET header...): parses these headers of others once for all files of TARGET, or
# tovi_precompile(TARGET REUSE_FROM other): takes those of a target with the same switches. The sanitized
# build goes without, so that a file that forgets an include line doesn't compile there.
set(precompiled_standard <algorithm> <array> <functional> <map> <memory> <optional> <string> <utility> <vector>)
set(precompiled_widgets ${precompiled_standard}
    <QAbstractItemView> <QApplication> <QDialog> <QKeyEvent> <QLabel> <QMenu> <QPainter> <QPointer>
    <QPushButton> <QTimer> <QTreeView> <QVBoxLayout>)
function(tovi_precompile target)
    if(NOT TOVI_PRECOMPILE)
        return()
    endif()
    if(ARGV1 STREQUAL "REUSE_FROM")
        target_precompile_headers(${target} ${ARGN})
    else()
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
    # For the compiler cache.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()

include(cmake/Rooms.cmake)

# Fails the build when an include line points out of its room.
file(GLOB_RECURSE TOVI_CHECKED_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/*.h
     ${PROJECT_SOURCE_DIR}/src/*.cpp)
add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/includes.checked
    COMMAND ${CMAKE_COMMAND} -D SOURCE_ROOT=${PROJECT_SOURCE_DIR}/src
            -P ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
    COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/includes.checked
    DEPENDS ${TOVI_CHECKED_SOURCES} ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
            ${PROJECT_SOURCE_DIR}/cmake/Rooms.cmake
    COMMENT "Checking the rooms")
add_custom_target(check_includes DEPENDS ${CMAKE_BINARY_DIR}/includes.checked)

# tovi_include_root(TARGET SCOPE room...): gives TARGET an include root that shows these rooms alone.
function(tovi_include_root target scope)
    set(root ${CMAKE_BINARY_DIR}/include-roots/${target})
    file(REMOVE_RECURSE ${root})
    file(MAKE_DIRECTORY ${root})
    foreach(folder IN LISTS ARGN)
        get_filename_component(above ${root}/${folder} DIRECTORY)
        file(MAKE_DIRECTORY ${above})
        file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${folder} ${root}/${folder} SYMBOLIC)
    endforeach()
    target_include_directories(${target} ${scope} ${root})
    add_dependencies(${target} check_includes)
endfunction()

# tovi_layer(NAME room...): the objects of the rooms. What a layer may see of others it gets by linking
# them.
function(tovi_layer name)
    list(TRANSFORM ARGN PREPEND ${PROJECT_SOURCE_DIR}/src/ OUTPUT_VARIABLE patterns)
    list(TRANSFORM patterns APPEND /*.cpp)
    file(GLOB sources CONFIGURE_DEPENDS ${patterns})
    add_library(${name} OBJECT ${sources})
    target_link_libraries(${name} PRIVATE tovi_switches)
    target_compile_definitions(${name} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CONTEXTLESS_CONNECT)
    tovi_include_root(${name} PUBLIC ${ARGN})
endfunction()

# tovi_widget_layer(NAME room...): a layer of Qt widgets, whose signals need Qt's own compiler.
function(tovi_widget_layer name)
    tovi_layer(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    # CMake 3.25 doesn't look at files that are new unless it looks at all of them.
    get_target_property(sources ${name} SOURCES)
    set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}.sources)
    set(before)
    if(EXISTS ${list})
        file(READ ${list} before)
    endif()
    if(NOT before STREQUAL sources)
        file(WRITE ${list} "${sources}")
        file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp)
    endif()
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
endfunction()
