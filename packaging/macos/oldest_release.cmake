# tamberline_oldest_release(<variable> <own oldest release> <library>...): the oldest release of the
# system on which a program runs that is built for <own oldest release> and brings these libraries.
# Package managers build libraries for newer releases than their source supports.
function(tamberline_oldest_release variable own)
  set(oldest ${own})
  foreach(library IN LISTS ARGN)
    execute_process(COMMAND otool -l ${library} OUTPUT_VARIABLE commands ERROR_QUIET)
    string(REGEX MATCH "minos ([0-9.]+)" found "${commands}")
    if(found AND CMAKE_MATCH_1 VERSION_GREATER oldest)
      set(oldest ${CMAKE_MATCH_1})
    endif()
  endforeach()
  set(${variable} ${oldest} PARENT_SCOPE)
endfunction()
