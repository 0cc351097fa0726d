# Compile options shared by every target of the project. Warnings are errors in the presets of the checks
# alone: a newer compiler may see something that nobody has seen yet, and shall build all the same.
add_library(tamberline_options INTERFACE)
target_include_directories(tamberline_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(tamberline_options INTERFACE
  -Wall -Wextra -Wpedantic
  -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Woverloaded-virtual -Wcast-align -Wformat=2 -Wnull-dereference)
# g++ 12 sees overlapping copies in plain text concatenation (its bug 105651), and a value in an empty
# optional (its bug 80635).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tamberline_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
# Where sources are compiled together, g++ takes them for headers, in which a coroutine or a class with a
# member of a type that only this file knows would be a fault.
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tamberline_options INTERFACE -Wno-subobject-linkage)
endif()

# What people run is hardened: a hostile device that finds a fault in a parser shall end the program and
# not take it over.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  target_compile_options(tamberline_options INTERFACE
    -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -fstack-protector-strong)
  if(NOT APPLE)
    target_compile_options(tamberline_options INTERFACE -fstack-clash-protection)
    target_link_options(tamberline_options INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
  endif()
endif()

if(TAMBERLINE_SANITIZE)
  target_compile_options(tamberline_options INTERFACE
    -fsanitize=${TAMBERLINE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tamberline_options INTERFACE -fsanitize=${TAMBERLINE_SANITIZE})
endif()
# clang 14 cannot check the types of called functions in coroutines that it optimises.
if(TAMBERLINE_BUILD_FUZZERS)
  target_compile_options(tamberline_options INTERFACE -fno-sanitize=function)
endif()

# Tests with several threads count in all of them; counts that get lost make others negative.
if(TAMBERLINE_COVERAGE)
  target_compile_options(tamberline_options INTERFACE
    --coverage -fprofile-abs-path -fprofile-update=atomic)
  target_link_options(tamberline_options INTERFACE --coverage)
endif()
