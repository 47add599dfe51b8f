# Installs the build into a scratch prefix, builds the embedding example against it, and lets it
# ingest a generated clip through the settings of its Ingest view, offscreen. Called by ctest with
# BUILD_DIR, SOURCE_DIR (the example), SAMPLE_MEDIA_TOOL, WORK_DIR and GENERATOR.
include(${CMAKE_CURRENT_LIST_DIR}/../support/InstalledHost.cmake)
install_and_build_host()
file(MAKE_DIRECTORY ${WORK_DIR}/media ${WORK_DIR}/out ${WORK_DIR}/home)

run_step(${SAMPLE_MEDIA_TOOL} ${WORK_DIR}/media plain --clips 1)
file(GLOB clip ${WORK_DIR}/media/PLAIN/*.mov)
if(NOT clip)
  message(FATAL_ERROR "the sample tool made no clip under ${WORK_DIR}/media/PLAIN")
endif()
get_filename_component(clip_name ${clip} NAME)

set(ENV{IGD_HOME} ${WORK_DIR}/home)
set(ENV{QT_QPA_PLATFORM} offscreen)
run_step(${WORK_DIR}/build/igd-embed-example ${clip} --destination ${WORK_DIR}/out --press-ingest
         --screenshot ${WORK_DIR}/embed.png)

set(copy ${WORK_DIR}/out/${clip_name})
if(NOT EXISTS ${copy})
  message(FATAL_ERROR "the example reported success, but ${copy} is not there")
endif()
file(MD5 ${clip} source_md5)
file(MD5 ${copy} copy_md5)
if(NOT source_md5 STREQUAL copy_md5)
  message(FATAL_ERROR "${copy} differs from ${clip}")
endif()
file(SIZE ${WORK_DIR}/embed.png screenshot_size)
if(screenshot_size LESS 10000)
  message(FATAL_ERROR "the screenshot ${WORK_DIR}/embed.png holds ${screenshot_size} bytes: no window in it")
endif()

# The chain of custody of the destination names the copy with the source's MD5, and the installed
# igd reads the copy back as its history says.
file(GLOB generations ${WORK_DIR}/out/ascmhl/*.mhl)
list(LENGTH generations count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "the destination holds ${count} history generations, not one: ${generations}")
endif()
file(READ ${generations} generation)
if(NOT generation MATCHES "<path[^>]*>${clip_name}</path>" OR NOT generation MATCHES "<md5[^>]*>${source_md5}</md5>")
  message(FATAL_ERROR "the history does not record ${clip_name} with the MD5 ${source_md5}:\n${generation}")
endif()
run_step(${prefix}/bin/igd verify ${WORK_DIR}/out --json)
if(NOT step_output MATCHES "\"matched\":1,\"altered\":\\[\\]")
  message(FATAL_ERROR "igd verify does not find the copy as the history records it: ${step_output}")
endif()
