# What every library, program and test of the project is built with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

find_program(KRV_CCACHE ccache)
if(KRV_CCACHE AND PROJECT_IS_TOP_LEVEL)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${KRV_CCACHE}")
endif()

# Options of our own sources; they are never passed on to users of the libraries.
add_library(krv_build_options INTERFACE)
target_compile_options(krv_build_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    $<$<BOOL:${KRV_WARNINGS_AS_ERRORS}>:-Werror>)
# GCC 12 sees overlapping copies inside std::string that are none, when it optimises (GCC bug 105651).
target_compile_options(krv_build_options INTERFACE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
if(KRV_SANITIZE)
    target_compile_options(krv_build_options INTERFACE
        -fsanitize=${KRV_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(krv_build_options INTERFACE -fsanitize=${KRV_SANITIZE})
endif()

# krv_add_library(<folder name> [INTERNAL] SOURCES ... [PUBLIC ...] [PRIVATE ...])
#
# Makes the library krv_<name> with the alias krvList3::<name>, found by others under include/.
# PUBLIC and PRIVATE name the libraries it stands on. An INTERNAL one is part of our programs only and
# is not installed.
function(krv_add_library name)
    cmake_parse_arguments(arg "INTERNAL" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(krv_${name} ${arg_SOURCES})
    add_library(krvList3::${name} ALIAS krv_${name})
    set_target_properties(krv_${name} PROPERTIES EXPORT_NAME ${name} OUTPUT_NAME krvlist3-${name})
    target_compile_features(krv_${name} PUBLIC cxx_std_20)
    target_include_directories(krv_${name}
        PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
        PRIVATE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(krv_${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} $<BUILD_INTERFACE:krv_build_options>)
    if(NOT arg_INTERNAL)
        set_property(GLOBAL APPEND PROPERTY KRV_LIBRARIES krv_${name})
    endif()
endfunction()

# krv_add_test(<name> SOURCES ... LIBRARIES ...)
#
# One GoogleTest program; ctest sees each of its cases as a test of its own.
function(krv_add_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} krv_build_options GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name}
        DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
