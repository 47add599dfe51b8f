# How the project's libraries are declared: each folder globs its own sources, every library is
# shared (so no singleton of the platform exists twice in a host), has an IGD:: alias, and is
# installed into one export set that the package config reads.

# Each folder globs its own sources so that parallel work on a subsystem never edits a shared list.
function(igd_sources out_var)
  file(GLOB_RECURSE _files CONFIGURE_DEPENDS ${ARGN})
  set(${out_var} ${_files} PARENT_SCOPE)
endfunction()

# Installs a library into the export set, under IGD::<export name>, with its public headers from
# the include folders given after INCLUDES.
function(igd_install_library target)
  cmake_parse_arguments(ARG "" "EXPORT_NAME" "INCLUDES" ${ARGN})
  if(ARG_EXPORT_NAME)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${ARG_EXPORT_NAME})
  endif()
  install(TARGETS ${target} EXPORT IGDTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  foreach(_dir IN LISTS ARG_INCLUDES)
    install(DIRECTORY ${_dir}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
  endforeach()
endfunction()

# A platform library: the sources under folder/src, its public headers under folder/include,
# known as IGD::<alias> here and once installed. A folder whose sources are not written yet gives
# a header-only library, so the tree configures while a service is being built.
function(igd_platform_library name alias folder)
  igd_sources(_srcs ${folder}/src/*.cpp)
  if(_srcs)
    add_library(${name} SHARED ${_srcs})
    set(_scope PUBLIC)
  else()
    add_library(${name} INTERFACE)
    set(_scope INTERFACE)
  endif()
  target_include_directories(${name} ${_scope}
    $<BUILD_INTERFACE:${folder}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${name} ${_scope} ${ARGN})
  add_library(IGD::${alias} ALIAS ${name})
  igd_install_library(${name} EXPORT_NAME ${alias} INCLUDES ${folder}/include)
endfunction()
