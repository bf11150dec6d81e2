# Puts files into a program: writes a C++ source with the bytes of each.
#   cmake -DOUTPUT=pages.cpp "-DFILES=index.html;style.css" -P embed.cmake
set(bodies "")
set(rows "")
set(number 0)
foreach(file IN LISTS FILES)
    get_filename_component(name "${file}" NAME)
    file(READ "${file}" hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    string(APPEND bodies "constexpr unsigned char kBytes${number}[] = {${bytes}0};\n")
    string(APPEND rows "    {\"/${name}\", {reinterpret_cast<const char*>(kBytes${number}), sizeof kBytes${number} - 1}},\n")
    math(EXPR number "${number} + 1")
endforeach()
file(WRITE "${OUTPUT}" "// Written by embed.cmake.
#include \"sim/web/pageFiles.h\"

namespace vxsim {
namespace {

${bodies}
const PageFile kFiles[] = {
${rows}};

} // namespace

std::span<const PageFile> PageFiles()
{
    return kFiles;
}

} // namespace vxsim
")
