# Compile options of all targets. Only the presets for development and checks turn warnings into errors,
# so that a newer compiler with new warnings can build the project.
add_library(tamberline_options INTERFACE)
target_include_directories(tamberline_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(tamberline_options INTERFACE
  -Wall -Wextra -Wpedantic
  -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Woverloaded-virtual -Wcast-align -Wformat=2 -Wnull-dereference)
# g++ 12 wrongly warns about overlapping copies in string concatenation (its bug 105651) and about
# uninitialised values of empty optionals (its bug 80635).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tamberline_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
# In unity builds g++ treats the sources as headers, and warns about coroutines and about classes with a
# member of a file-local type.
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tamberline_options INTERFACE -Wno-subobject-linkage)
endif()

# The same sources make the same programs in every folder.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  target_compile_options(tamberline_options INTERFACE
    -ffile-prefix-map=${PROJECT_BINARY_DIR}=build -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endif()

# Release builds are hardened, so that a hostile device that exploits a bug in a parser ends the program
# instead of taking it over.
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
# clang 14 cannot check function types in optimised coroutines.
if(TAMBERLINE_BUILD_FUZZERS)
  target_compile_options(tamberline_options INTERFACE -fno-sanitize=function)
endif()

# Counters are atomic, because tests have several threads, and lost updates make derived counts negative.
if(TAMBERLINE_COVERAGE)
  target_compile_options(tamberline_options INTERFACE
    --coverage -fprofile-abs-path -fprofile-update=atomic)
  target_link_options(tamberline_options INTERFACE --coverage)
endif()
