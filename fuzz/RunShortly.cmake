# The fuzzer adds to the corpus that it is given, so it is given a copy.
get_filename_component(folder "${FUZZER}" DIRECTORY)
file(REMOVE_RECURSE ${folder}/corpus)
file(COPY ${CORPUS} DESTINATION ${folder})
execute_process(COMMAND ${FUZZER} -seed=1 -runs=20000 -max_len=256 -rss_limit_mb=1024 corpus
  WORKING_DIRECTORY ${folder} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the fuzzer found a fault; the input stands in ${folder}")
endif()
