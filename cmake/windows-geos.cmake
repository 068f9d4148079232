# Included into GEOS's own project: the sources of each of its folders are compiled together, which takes much less
# time. Those below need names that others of their folder use otherwise, or switch their messages on, and stay alone.
set(compiled_alone
  "/src/geom/(prep/)?[A-Za-z]+\\.cpp"
  "/src/geomgraph/DirectedEdgeStar\\.cpp"
  "/src/io/GeoJSON[A-Za-z]*\\.cpp"
  "/src/operation/overlayng/(OverlayEdgeRing|OverlayUtil|PolygonBuilder)\\.cpp"
  "/src/operation/valid/[A-Za-z]+\\.cpp"
  "/src/precision/SimpleGeometryPrecisionReducer\\.cpp")
list(JOIN compiled_alone "|" compiled_alone)

function(compile_folders_together)
  get_target_property(sources geos SOURCES)
  foreach(source IN LISTS sources)
    if(source MATCHES "\\.cpp$" AND NOT source MATCHES "(${compiled_alone})$")
      get_filename_component(folder "${source}" DIRECTORY)
      string(MAKE_C_IDENTIFIER "${folder}" group)
      set_source_files_properties("${source}" TARGET_DIRECTORY geos PROPERTIES UNITY_GROUP "${group}")
    endif()
  endforeach()
  set_target_properties(geos PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()
cmake_language(DEFER CALL compile_folders_together)
