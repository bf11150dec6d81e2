# Every target of the project links vxsign_options: the warnings and the sanitizers in force.
add_library(vxsign_options INTERFACE)
target_compile_options(vxsign_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# GCC 12 sees overlapping copies where a literal is joined with a std::string.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(vxsign_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
endif()
if(VXSIGN_WERROR)
    target_compile_options(vxsign_options INTERFACE -Werror)
endif()
if(VXSIGN_SANITIZE)
    target_compile_options(vxsign_options INTERFACE -fsanitize=${VXSIGN_SANITIZE} -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer)
    target_link_options(vxsign_options INTERFACE -fsanitize=${VXSIGN_SANITIZE})
endif()
