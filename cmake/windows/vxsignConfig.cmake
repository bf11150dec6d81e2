# Finds vxsign.dll for both compilers: each has an import library of its own.
include(${CMAKE_CURRENT_LIST_DIR}/vxsignTargets.cmake)
if(MSVC)
    get_filename_component(VXSIGN_LIBRARY_DIR ${CMAKE_CURRENT_LIST_DIR}/../.. ABSOLUTE)
    set_target_properties(vxsign::vxsign PROPERTIES IMPORTED_IMPLIB_RELEASE ${VXSIGN_LIBRARY_DIR}/vxsign.lib)
endif()
