#!/usr/bin/env bash
# Installs the Debian packages that building, testing and showing vxsign need. Does nothing when all are there.
#   scripts/setup.sh            for everyone
#   scripts/setup.sh fleet      those for many signs at a broker as well
#   scripts/setup.sh package    those for packages
#   scripts/setup.sh reference  those for the web pages of the functions
#   scripts/setup.sh windows    those to build for Windows; the rest of that is scripts/setup-windows.sh
#   scripts/setup.sh ci         all, those for the longer tests too
set -euo pipefail

packages=(
    g++ cmake ninja-build pkg-config                              # building
    libtinyxml2-dev libpcre2-dev                                  # the library
    libsqlite3-dev libfreetype-dev libraqm-dev libstb-dev         # the virtual sign
    libcpp-httplib-dev                                            # its page
    fonts-liberation fonts-unifont                                # its lettering
    libmosquitto-dev prometheus-cpp-dev                           # the service
    libcli11-dev nlohmann-json3-dev libgif-dev libtomlplusplus-dev # the command line
    libgtest-dev libgmock-dev libbenchmark-dev libmodbus-dev lrzsz # tests and measurements
    python3-jsonschema                                            # what --json prints, beside its schema
    mbpoll python3-pymodbus python3-serial-asyncio                # hosts of the Modbus devices
    jq                                                            # the commands of the documents
    python3-pycparser python3-pytest mypy                         # the bindings
    clang-format clang-tidy binutils                              # style and the export check
)

wanted=${1:-}
of() { [[ "$wanted" =~ ^(ci|$1)$ ]]; }
! of fleet || packages+=(mosquitto mosquitto-clients)
! of package || packages+=(
    debhelper dpkg-dev lintian                                    # making packages, and looking at them
    dh-python pybuild-plugin-pyproject python3-all python3-setuptools # the Python package
    abigail-tools mmdebstrap                                      # the binary contract; a bare Debian
)
! of reference || packages+=(doxygen)
! of windows || packages+=(
    g++-mingw-w64-x86-64-posix llvm dpkg-dev googletest           # cross compiler, import libraries, sources of libraries
    wine wine64 zip                                               # running what was built, and giving it away
)
! of ci || packages+=(
    clang libclang-rt-14-dev                                      # fuzz targets
    chromium chromium-driver python3-selenium                     # the page in a browser
    tshark                                                        # the dissector
    python3-paho-mqtt prometheus                                  # the service with a broker
    mono-mcs mono-runtime libmono-i18n4.0-all                     # C#
    rustc cargo bindgen                                           # the example in Rust
)

missing=()
for package in "${packages[@]}"; do
    state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$state" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=()
[ "$(id -u)" -eq 0 ] || sudo=(sudo)
echo "installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
