# SPDX-License-Identifier: GPL-3.0-or-later
# Proves from the include lines that includes run one way, by folder alone:
#   - a logic subsystem includes itself and those before it, and no Qt;
#   - the shell includes the store and the platform, and no other subsystem, kind or screen;
#   - a kind includes logic, shell and other kinds, and no screen;
#   - a screen includes no other screen, but for a header of its own files;
#   - of the platform, only files qt_* include Qt;
#   - a quoted include is written from src/, so it has a slash.
# Usage: cmake -DROOT=<project> -P layering.cmake
cmake_minimum_required(VERSION 3.25)

# The order of the subsystems is the one that the libraries are built in.
file(STRINGS ${ROOT}/CMakeLists.txt subsystems REGEX "^set\\(subsystems [a-z ]+\\)")
if(NOT subsystems)
    message(FATAL_ERROR "no set(subsystems ...) in ${ROOT}/CMakeLists.txt")
endif()
string(REGEX REPLACE "^set\\(subsystems ([a-z ]+)\\).*" "\\1" subsystems "${subsystems}")
separate_arguments(subsystems)

function(fault text)
    message("${text}")
    set_property(GLOBAL APPEND PROPERTY faults "${text}")
endfunction()

# The headers named by the include lines of a file, as "quoted" and "angled".
function(read_includes path)
    set(angled)
    set(quoted)
    file(STRINGS ${ROOT}/src/${path} lines REGEX "^[ \t]*#[ \t]*include")
    foreach(line IN LISTS lines)
        if(line MATCHES "include[ \t]*<([^>]+)>")
            list(APPEND angled "${CMAKE_MATCH_1}")
        elseif(line MATCHES "include[ \t]*\"([^\"]+)\"")
            list(APPEND quoted "${CMAKE_MATCH_1}")
        else()
            fault("src/${path}: include not understood: ${line}")
        endif()
    endforeach()
    list(FILTER quoted EXCLUDE REGEX "^moc_|\\.moc$") # made by the build, beside the source
    set(angled "${angled}" PARENT_SCOPE)
    set(quoted "${quoted}" PARENT_SCOPE)
endfunction()

function(check_written_from_src path)
    read_includes(${path})
    foreach(header IN LISTS quoted)
        if(NOT header MATCHES "/" OR header MATCHES "\\.\\.")
            fault("src/${path}: not written from src/: \"${header}\"")
        endif()
    endforeach()
endfunction()

function(check_no_qt path)
    read_includes(${path})
    foreach(header IN LISTS angled quoted)
        if(header MATCHES "^[Qq]")
            fault("src/${path}: includes Qt: ${header}")
        endif()
    endforeach()
endfunction()

# `folders`: those that the file may include.
function(check_no_higher_folder path folders)
    read_includes(${path})
    foreach(header IN LISTS quoted)
        string(REGEX REPLACE "/.*" "" folder "${header}")
        if(NOT folder IN_LIST folders)
            fault("src/${path}: includes what stands above it: \"${header}\"")
        endif()
    endforeach()
endfunction()

file(GLOB_RECURSE all RELATIVE ${ROOT}/src ${ROOT}/src/*.h ${ROOT}/src/*.cpp)
foreach(path IN LISTS all)
    check_written_from_src(${path})
endforeach()

# Checks all files of a folder against the folders that they may include.
function(check_folder folder)
    set(files ${all})
    list(FILTER files INCLUDE REGEX "^${folder}/")
    foreach(path IN LISTS files)
        check_no_higher_folder(${path} "${ARGN}")
    endforeach()
endfunction()

set(logic 0)
foreach(subsystem IN LISTS subsystems)
    list(APPEND allowed ${subsystem})
    check_folder(${subsystem} ${allowed})
    set(files ${all})
    list(FILTER files INCLUDE REGEX "^${subsystem}/")
    foreach(path IN LISTS files)
        check_no_qt(${path})
        math(EXPR logic "${logic} + 1")
    endforeach()
endforeach()
check_folder(shell store platform shell)
check_folder(kinds ${subsystems} platform shell kinds)

# A header among the screens belongs to the files of its screen: form1_main.cpp, form1_layout.cpp.
set(files ${all})
list(FILTER files INCLUDE REGEX "^screens/")
foreach(path IN LISTS files)
    check_no_higher_folder(${path} "${subsystems};platform;shell;kinds;screens")
    read_includes(${path})
    string(REGEX REPLACE "_.*" "_" own "${path}")
    foreach(header IN LISTS quoted)
        string(REGEX REPLACE "_.*" "_" other "${header}")
        if(header MATCHES "^screens/" AND NOT other STREQUAL own)
            fault("src/${path}: includes another screen: \"${header}\"")
        endif()
    endforeach()
endforeach()

set(files ${all})
list(FILTER files INCLUDE REGEX "^platform/")
list(FILTER files EXCLUDE REGEX "/qt_")
foreach(path IN LISTS files)
    check_no_qt(${path})
endforeach()

get_property(faults GLOBAL PROPERTY faults)
list(LENGTH faults count)
list(LENGTH all files)
if(count)
    message(FATAL_ERROR "${count} includes break the layering")
elseif(logic EQUAL 0)
    message(FATAL_ERROR "no logic file found in ${ROOT}/src")
endif()
message(STATUS "${files} files, ${logic} of them logic: includes run one way")
