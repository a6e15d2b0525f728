# Writes vtpool's man page (vtpool.1, gzipped when GZIP names gzip) and bash completion
# (vtpool.bash) into DIR, as vtpool prints them from its command table:
#   cmake -DVTPOOL=path/to/vtpool -DDIR=out [-DGZIP=/usr/bin/gzip] -P vtpool_docs.cmake
# A file is replaced only once it has been written whole.
function(vtpool_output file)
  execute_process(COMMAND ${VTPOOL} ${ARGN} OUTPUT_FILE ${DIR}/${file}.part RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    file(REMOVE ${DIR}/${file}.part)
    message(FATAL_ERROR "vtpool ${ARGN} failed: ${status}")
  endif()
  file(RENAME ${DIR}/${file}.part ${DIR}/${file})
endfunction()

file(MAKE_DIRECTORY ${DIR})
vtpool_output(vtpool.1 help --man)
vtpool_output(vtpool.bash help --bash-completion)
if(GZIP)
  # -n leaves the name and time out, so the same page gives the same bytes.
  execute_process(COMMAND ${GZIP} -9 -n -c ${DIR}/vtpool.1 OUTPUT_FILE ${DIR}/vtpool.1.gz.part
    RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "gzip failed: ${status}")
  endif()
  file(RENAME ${DIR}/vtpool.1.gz.part ${DIR}/vtpool.1.gz)
endif()
