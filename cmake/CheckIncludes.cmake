# cmake -D SOURCE_ROOT=src -P CheckIncludes.cmake
#
# Reads every include line under SOURCE_ROOT and fails where one points against the layers:
#   model and platform never include a window or a host,
#   the model includes nothing but itself, platform and the C++ standard library,
#   no header that shows an outside library is included from outside platform.

cmake_minimum_required(VERSION 3.25)

set(model document loading review extraction settings imagefacts reports)
set(windows panels dialogs)
set(see_platform platform)
set(see_model platform ${model})
set(see_windows ${see_model} ${windows})
set(see_hosts ${see_windows} hosts)
set(standard "^<[a-z_]+>$")

# The layer of a file, from its path below SOURCE_ROOT.
function(layer_of path out)
    string(REGEX MATCH "^[^/]+" folder ${path})
    if(folder IN_LIST model)
        set(${out} model PARENT_SCOPE)
    elseif(folder IN_LIST windows)
        set(${out} windows PARENT_SCOPE)
    else()
        set(${out} ${folder} PARENT_SCOPE)
    endif()
endfunction()

function(includes_of path out)
    file(STRINGS ${path} lines REGEX "^[ \t]*#[ \t]*include")
    set(found)
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*([<\"][^>\"]+[>\"]).*" "\\1" included ${line})
        list(APPEND found ${included})
    endforeach()
    set(${out} ${found} PARENT_SCOPE)
endfunction()

function(refuse path included why)
    message(SEND_ERROR "${path}: ${included} ${why}")
endfunction()

file(GLOB_RECURSE paths RELATIVE ${SOURCE_ROOT} ${SOURCE_ROOT}/*.h ${SOURCE_ROOT}/*.cpp)
foreach(path IN LISTS paths)
    layer_of(${path} layer)
    includes_of(${SOURCE_ROOT}/${path} all)
    foreach(included IN LISTS all)
        if(included MATCHES "^<")
            if(layer STREQUAL "model" AND NOT included MATCHES ${standard})
                refuse(${path} ${included} "is no header of the C++ standard library")
            endif()
            continue()
        endif()
        string(REGEX REPLACE "\"" "" header ${included})
        string(REGEX MATCH "^[^/]+" folder ${header})
        if(NOT folder IN_LIST see_${layer} OR NOT EXISTS ${SOURCE_ROOT}/${header})
            refuse(${path} ${included} "is not to be seen from ${layer}")
        elseif(folder STREQUAL "platform" AND layer MATCHES "model|hosts")
            includes_of(${SOURCE_ROOT}/${header} inner)
            list(FILTER inner INCLUDE REGEX "^<")
            list(FILTER inner EXCLUDE REGEX ${standard})
            if(inner)
                refuse(${path} ${included} "shows an outside library: ${inner}")
            endif()
        endif()
    endforeach()
endforeach()
