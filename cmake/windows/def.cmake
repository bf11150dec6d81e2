# The linker's list of exports without their numbers, which change with each new function.
#   cmake -DFROM=vxsign.def.linked -DTO=vxsign.def -P def.cmake
file(STRINGS ${FROM} lines REGEX "@[0-9]+")
list(TRANSFORM lines REPLACE "^ *([^ ]+) .*$" "    \\1")
list(SORT lines)
list(JOIN lines "\n" names)
file(WRITE ${TO} "LIBRARY vxsign.dll\nEXPORTS\n${names}\n")
