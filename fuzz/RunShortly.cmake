# The fuzzer adds to the corpus that it is given, so it is given a copy. What decoding costs in memory is about what the
# octets hold, whatever they claim.
set(folder "${FUZZER}.run")
file(REMOVE_RECURSE ${folder})
file(COPY ${CORPUS}/ DESTINATION ${folder}/corpus)
execute_process(COMMAND ${FUZZER} -seed=1 -runs=${RUNS} -max_len=256 -rss_limit_mb=1024 -malloc_limit_mb=64 corpus
  WORKING_DIRECTORY ${folder} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the fuzzer found a fault; the input stands in ${folder}")
endif()
