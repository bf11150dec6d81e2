# vxsign.dll, and what programs link: libvxsign.dll.a for MinGW, vxsign.lib for MSVC, and vxsign.def for all else.
find_program(VXSIGN_DLLTOOL llvm-dlltool REQUIRED)
set_target_properties(vxsign PROPERTIES PREFIX "")
set(VXSIGN_DEF ${CMAKE_CURRENT_BINARY_DIR}/vxsign.def)
set(VXSIGN_MSVC_LIBRARY ${CMAKE_CURRENT_BINARY_DIR}/vxsign.lib)
target_link_options(vxsign PRIVATE LINKER:--output-def=${VXSIGN_DEF}.linked)
add_custom_command(TARGET vxsign POST_BUILD
    COMMAND ${CMAKE_COMMAND} -DFROM=${VXSIGN_DEF}.linked -DTO=${VXSIGN_DEF} -P ${CMAKE_CURRENT_LIST_DIR}/def.cmake
    COMMAND ${VXSIGN_DLLTOOL} -m i386:x86-64 -d ${VXSIGN_DEF} -l ${VXSIGN_MSVC_LIBRARY}
    BYPRODUCTS ${VXSIGN_DEF} ${VXSIGN_MSVC_LIBRARY}
    VERBATIM)
