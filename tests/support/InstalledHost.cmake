# For the scripts that build a host outside the tree against an install of this build. Expects
# BUILD_DIR, SOURCE_DIR (the host), WORK_DIR and GENERATOR.

# Runs a command, failing the test with what it said unless it succeeds; its output is left in
# step_output.
function(run_step)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed (${result}): ${ARGN}\n${out}\n${err}")
  endif()
  message(STATUS "${out}")
  set(step_output "${out}" PARENT_SCOPE)
endfunction()

# Begins WORK_DIR afresh, installs the build into WORK_DIR/prefix (left in prefix) and builds the
# host in WORK_DIR/build.
macro(install_and_build_host)
  file(REMOVE_RECURSE ${WORK_DIR})
  file(MAKE_DIRECTORY ${WORK_DIR})
  set(prefix ${WORK_DIR}/prefix)
  run_step(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
  run_step(${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${prefix})
  run_step(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
endmacro()
