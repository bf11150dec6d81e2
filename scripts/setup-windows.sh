#!/usr/bin/env bash
# What building for Windows needs beside scripts/setup.sh: the cross compiler and Wine from Debian, and below
# build/windows-deps the libraries, built from Debian's sources. Does nothing when all is there.
set -euo pipefail
cd "$(dirname "$0")/.."
deps=$PWD/build/windows-deps
prefix=$deps/prefix
jobs=$(nproc)
scripts/setup.sh windows

# The package lists of this machine, for sources: apt reads them beside its own, which stay as they are.
mkdir -p "$deps"/apt/{etc,lists/partial,cache/archives/partial} "$deps"/{source,build} "$prefix"
apt=(-o Dir::Etc::SourceList="$deps/apt/etc/none" -o Dir::Etc::SourceParts="$deps/apt/etc"
    -o Dir::State::Lists="$deps/apt/lists" -o Dir::Cache="$deps/apt/cache" -o APT::Sandbox::User= -o APT::Get::List-Cleanup=false)
listSources()
{
    local file
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ ! -f "$file" ] || sed -n 's/^deb /deb-src /p' "$file" > "$deps/apt/etc/$(basename "${file%.list}").list"
    done
    for file in /etc/apt/sources.list.d/*.sources; do
        [ ! -f "$file" ] || sed 's/^Types:.*/Types: deb-src/' "$file" > "$deps/apt/etc/$(basename "$file")"
    done
    apt-get "${apt[@]}" update -qq
    listed=yes
}

# Fetches the source package of a library, unless it is built already: a stamp tells. The newest version may be listed
# before it is there; then an earlier one does.
listed=
source=
unbuilt()
{
    [ ! -e "$deps/$1.built" ] || return 1
    [ -n "$listed" ] || listSources
    local folder=$deps/source/$1 version
    for version in $(apt-cache "${apt[@]}" showsrc --only-source "$1" | sed -n 's/^Version: //p' | sort -Vru); do
        rm -rf "$folder"
        mkdir -p "$folder"
        (cd "$folder" && apt-get "${apt[@]}" source -qq "$1=$version" > fetch.log 2>&1) || continue
        source=$(find "$folder" -mindepth 1 -maxdepth 1 -type d)
        echo "building $1 $version for Windows"
        return 0
    done
    cat "$folder/fetch.log"
    exit 1
}
built()
{
    touch "$deps/$1.built"
}
# Configures, builds and installs: NAME FOLDER OPTION...
build()
{
    local log=$deps/build/$1.log
    { cmake -S "$2" -B "$deps/build/$1" -G Ninja --toolchain "$PWD/cmake/windows/toolchain.cmake" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF "${@:3}" &&
        cmake --build "$deps/build/$1" --parallel "$jobs" --target install; } > "$log" 2>&1 || { tail -50 "$log"; exit 1; }
    built "$1"
}

! unbuilt tinyxml2 || build tinyxml2 "$source" -Dtinyxml2_BUILD_TESTING=OFF
! unbuilt pcre2 || build pcre2 "$source" -DPCRE2_BUILD_TESTS=OFF -DPCRE2_BUILD_PCRE2GREP=OFF -DPCRE2_SUPPORT_UNICODE=OFF
[ -e "$deps/googletest.built" ] || build googletest /usr/src/googletest

# Libraries that are headers alone are those of this machine, in a folder in which the cross compiler looks: PACKAGE NAME FOLDER
headers()
{
    [ ! -e "$deps/$1.built" ] || return 0
    dpkg -L "$1" | while read -r path; do
        [ -f "$path" ] || continue
        case $path in
            /usr/include/*) install -Dm644 "$path" "$prefix/${path#/usr/}" ;;
            /usr/share/cmake/*) install -Dm644 "$path" "$prefix/${path#/usr/}" ;;
        esac
    done
    printf 'Name: %s\nDescription: headers\nVersion: 0\nCflags: -I%s\n' "$2" "$prefix/$3" > "$prefix/lib/pkgconfig/$2.pc"
    built "$1"
}
headers libcli11-dev CLI11 include
headers nlohmann-json3-dev nlohmann_json include
headers libtomlplusplus-dev tomlplusplus include
headers libstb-dev stb include/stb
