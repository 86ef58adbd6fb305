# Compiles the federate with all callbacks in one dialect, and the public headers: in the oldest dialect, whose
# standard headers include the least, every one alone; in the others all of them together.
#   cmake -D COMPILER=g++ -D DIALECT=11 -D INCLUDE=include -D BUILD=build/release -P CompileAll.cmake
set(flags -std=c++${DIALECT} -fsyntax-only -I ${INCLUDE} -I ${BUILD}
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
set(failures 0)

function(compile what)
  execute_process(COMMAND ${COMPILER} ${flags} ${ARGN} RESULT_VARIABLE result ERROR_VARIABLE messages)
  if(NOT result EQUAL 0)
    message(NOTICE "${what}:\n${messages}")
    math(EXPR failures "${failures} + 1")
    set(failures ${failures} PARENT_SCOPE)
  endif()
endfunction()

file(GLOB_RECURSE headers RELATIVE ${INCLUDE} ${INCLUDE}/RTI/*.h)
list(LENGTH headers count)
if(count EQUAL 0)
  message(FATAL_ERROR "There is no header in ${INCLUDE}/RTI")
endif()
if(DIALECT EQUAL 11)
  foreach(header IN LISTS headers)
    compile("${header}" -include ${header} -x c++ /dev/null)
  endforeach()
else()
  list(TRANSFORM headers PREPEND "-include;" OUTPUT_VARIABLE all)
  compile("the headers together" ${all} -x c++ /dev/null)
endif()

set(callbacks ${CMAKE_CURRENT_LIST_DIR}/Callbacks.cpp)
compile("Callbacks.cpp" ${callbacks})
if(DIALECT LESS 17)
  # Later dialects have no exception specifications but noexcept; these compilers warn of them before.
  compile("Callbacks.cpp with exception specifications"
    -D EXCEPTION_SPECIFICATIONS -Wno-deprecated ${callbacks})
endif()

if(failures)
  message(FATAL_ERROR "${failures} of the above do not compile as C++${DIALECT}")
endif()
message(STATUS "${count} headers and all callbacks compile as C++${DIALECT}")
