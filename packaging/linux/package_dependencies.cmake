# What the Debian package depends on besides the linked libraries. Run by CPack where the package is made,
# because the packages that hold what the programs open have other names in other releases.
cmake_policy(VERSION 3.25)
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

# Without dpkg-shlibdeps CPack would leave the linked libraries out and say so in passing.
foreach(tool dpkg-query dpkg-shlibdeps file)
  find_program(${tool}_found ${tool})
  if(NOT ${tool}_found)
    message(FATAL_ERROR "`${tool}` is missing, without which no package can be made; scripts/setup installs it")
  endif()
endforeach()

# tamberline_package_with(<file> <variable>): the name of the installed package that has the file.
function(tamberline_package_with file variable)
  execute_process(COMMAND dpkg-query --search ${file}
    OUTPUT_VARIABLE answer ERROR_QUIET RESULT_VARIABLE status)
  if(NOT status EQUAL 0 OR NOT answer MATCHES "^([a-z0-9][a-z0-9+.-]+)(:[a-z0-9-]+)?: /")
    message(FATAL_ERROR "No installed package has ${file}, which Tamberline opens; scripts/setup installs it")
  endif()
  set(${variable} ${CMAKE_MATCH_1} PARENT_SCOPE)
endfunction()

set(packages "")
foreach(file IN LISTS CPACK_TAMBERLINE_FILES_AT_RUN_TIME)
  tamberline_package_with(${file} package)
  list(APPEND packages ${package})
endforeach()
list(REMOVE_DUPLICATES packages)
list(SORT packages)
list(JOIN packages ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
