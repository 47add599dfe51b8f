# Installs the build into a scratch prefix, builds the consumer host against it, and runs its
# ingest of a file into a folder. Called by ctest with BUILD_DIR, SOURCE_DIR, WORK_DIR, GENERATOR.
include(${CMAKE_CURRENT_LIST_DIR}/../support/InstalledHost.cmake)
install_and_build_host()
file(MAKE_DIRECTORY ${WORK_DIR}/media ${WORK_DIR}/out ${WORK_DIR}/home)
file(WRITE ${WORK_DIR}/media/A001C001.MOV "a clip's bytes\n")
set(ENV{IGD_HOME} ${WORK_DIR}/home)
run_step(${WORK_DIR}/build/igd_consumer ${WORK_DIR}/media/A001C001.MOV ${WORK_DIR}/out
         ${WORK_DIR}/home/project.igdproj)

# The installed library shows hosts its API and nothing else.
file(GLOB library ${prefix}/lib*/libIGD.so)
execute_process(COMMAND nm -DC --defined-only ${library} OUTPUT_VARIABLE symbols RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "nm could not read ${library}")
endif()
string(REGEX MATCHALL "\n" lines "${symbols}")
list(LENGTH lines count)
message(STATUS "libIGD.so exports ${count} symbols")
if(count GREATER_EQUAL 300)
  message(FATAL_ERROR "libIGD.so exports ${count} symbols; only the API should be visible")
endif()
