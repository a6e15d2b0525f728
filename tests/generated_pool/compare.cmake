# Builds a description with vtpool, writes the same pool from the generated source, and
# compares the two files.
execute_process(COMMAND ${VTPOOL} build ${DESCRIPTION} -o ${OUT}/built.iop RESULT_VARIABLE r1 OUTPUT_QUIET)
if(NOT r1 EQUAL 0)
  message(FATAL_ERROR "vtpool build failed: ${r1}")
endif()
execute_process(COMMAND ${WRITER} ${OUT}/generated.iop RESULT_VARIABLE r2)
if(NOT r2 EQUAL 0)
  message(FATAL_ERROR "the generated pool writer failed: ${r2}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${OUT}/built.iop ${OUT}/generated.iop RESULT_VARIABLE r3)
if(NOT r3 EQUAL 0)
  message(FATAL_ERROR "the pool written from generated source differs from vtpool build's")
endif()
