# Runs tamberline_oldest_release with a tool that prints what the real one prints about a library.
file(MAKE_DIRECTORY ${FOLDER})
include(${FUNCTIONS})

file(WRITE ${FOLDER}/otool [[#!/bin/sh
[ "$1" = -l ] || exit 1
case "$2" in
  /new) printf '      cmd LC_BUILD_VERSION\n  cmdsize 32\n platform 1\n    minos 26.0\n      sdk 26.1\n' ;;
  /older) printf '      cmd LC_BUILD_VERSION\n  cmdsize 32\n platform 1\n    minos 14.0\n      sdk 14.5\n' ;;
  *) echo "error: can't open file" >&2; exit 1 ;;
esac
]])
file(CHMOD ${FOLDER}/otool PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
set(ENV{PATH} "${FOLDER}:$ENV{PATH}")

function(expect_release expected)
  tamberline_oldest_release(oldest 13.0 ${ARGN})
  if(NOT oldest STREQUAL expected)
    message(SEND_ERROR "${ARGN}: ${oldest} instead of ${expected}")
  endif()
endfunction()

expect_release(13.0)
expect_release(13.0 /absent)
expect_release(14.0 /older)
expect_release(26.0 /older /new)
expect_release(26.0 /new /older)
