# The resource store: every layout and image under resources/ compiled into a target as byte
# arrays, looked up by type and upper-case name (shell/resources/ResourceStore.h). The globs are
# re-checked at each build, so adding a file under resources/ needs no edit here.

set(IGD_EMBED_RESOURCES_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/EmbedResources.cmake)

function(igd_add_resource_store target resources_dir)
  file(GLOB _xml CONFIGURE_DEPENDS ${resources_dir}/layouts/*.xml)
  file(GLOB _png CONFIGURE_DEPENDS ${resources_dir}/images/*.png)
  file(GLOB _svg CONFIGURE_DEPENDS ${resources_dir}/images/*.svg)

  # One line per resource: type, then path. Written only when it changes, so an unchanged set of
  # files does not regenerate the store.
  set(_manifest "")
  foreach(_type IN ITEMS XML PNG SVG)
    string(TOLOWER ${_type} _ext)
    foreach(_file IN LISTS _${_ext})
      string(APPEND _manifest "${_type} ${_file}\n")
    endforeach()
  endforeach()
  set(_dir ${CMAKE_CURRENT_BINARY_DIR}/generated/resources)
  file(CONFIGURE OUTPUT ${_dir}/manifest.txt CONTENT "${_manifest}" @ONLY)

  set(_out ${_dir}/ResourceStoreData.cpp)
  add_custom_command(
    OUTPUT ${_out}
    COMMAND ${CMAKE_COMMAND} -DMANIFEST=${_dir}/manifest.txt -DOUTPUT=${_out} -P ${IGD_EMBED_RESOURCES_SCRIPT}
    DEPENDS ${_xml} ${_png} ${_svg} ${_dir}/manifest.txt ${IGD_EMBED_RESOURCES_SCRIPT}
    COMMENT "Compiling the resource store"
    VERBATIM)
  target_sources(${target} PRIVATE ${_out})
endfunction()
