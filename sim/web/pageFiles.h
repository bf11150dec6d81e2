// The files of the page, which the program carries with it.
#pragma once

#include <span>
#include <string_view>

namespace vxsim {

struct PageFile
{
    std::string_view path; // "/index.html"
    std::string_view bytes;
};

// All files of sim/web/page.
std::span<const PageFile> PageFiles();

} // namespace vxsim
