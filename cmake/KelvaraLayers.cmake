# Settings that every target shares, and kv_layer(), which makes one library of a folder.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
# An installed program finds its libraries beside itself.
set(CMAKE_INSTALL_RPATH "$ORIGIN")
# What is installed is what was built; the tests need not be built for it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

option(KV_SANITIZE "AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(KV_PCH "Precompile the headers that most files share" ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wno-unused-parameter -Wno-restrict -Werror=return-type)
# No function of a shared library is replaced from outside: the compiler may inline them.
add_compile_options(-fno-semantic-interposition)
add_compile_definitions(QT_NO_KEYWORDS)
if(KV_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# kv_layer(NAME SHARED|STATIC [RECURSE] [QT] LINKS lib...)
# A library of all the .cpp files of the current folder. Includes are written from the root of
# the repository, so that a reader, and tests/check_includes.py, see the layer in every line.
function(kv_layer name kind)
    cmake_parse_arguments(ARG "QT" "" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    add_library(${name} ${kind} ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_LINKS})
    if(KV_PCH)
        if(ARG_QT)
            target_precompile_headers(${name} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/pch_qt.h)
        else()
            target_precompile_headers(${name} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/pch_std.h)
        endif()
    endif()
endfunction()
