// What the tests take from POSIX, on Windows; read ahead of each of them.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <direct.h>
#include <io.h>
#include <string>

/// Windows has other variables for folders than POSIX has.
inline int setenv(const char* name, const char* value, int /*overwrite*/)
{
    return ::_putenv_s(std::string(name) == "TMPDIR" ? "TMP" : name, value);
}

inline int unsetenv(const char* name)
{
    return ::setenv(name, "", 1);
}

inline char* mkdtemp(char* pattern)
{
    return ::_mktemp(pattern) != nullptr && ::_mkdir(pattern) == 0 ? pattern : nullptr;
}
