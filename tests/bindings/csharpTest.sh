#!/usr/bin/env bash
# Builds the C# binding, its test and the examples with mono, and runs the test: csharpTest.sh BIN LIBRARIES
# BIN has vxsim and gets csharp/ with the programs, LIBRARIES has libvxsign.so.2, built without sanitizers.
set -euo pipefail
bin=$(realpath "$1")
libraries=$(realpath "$2")
cd "$(dirname "$0")/../.."
out=$bin/csharp
mkdir -p "$out"
compile() {
    mcs -nologo -unsafe -langversion:7.2 -warnaserror -r:System.Core.dll "$@"
}
compile -warn:4 -target:library -r:System.Xml.dll -out:"$out/Vxsign.Net.dll" bindings/csharp/*.cs
cp bindings/csharp/Vxsign.Net.dll.config "$out"
for program in examples/csharp/*.cs tests/bindings/csharpTest.cs; do
    compile -r:"$out/Vxsign.Net.dll" -r:System.dll -out:"$out/$(basename "$program" .cs).exe" "$program"
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/tmp" "$work/old"
export EXAMPLES=$PWD/examples VXSIM=$bin/vxsim TZ=UTC-5:30 LANG=C.UTF-8 TMPDIR=$work/tmp
run() {
    LD_LIBRARY_PATH=$1 timeout 300 mono "$out/csharpTest.exe" "${@:2}"
}
run "$libraries"
left=$(ls -A "$TMPDIR")
[ -z "$left" ] || { echo "FAILED: it leaves $left" && exit 1; }

# A library that is missing, and one of former years.
run "$work/old" "libvxsign.so.2 was not found"
echo 'const char* vxAPIVersion(void) { return "1.9.0 2015-01-01"; }' | cc -shared -fPIC -x c -o "$work/old/libvxsign.so.2" -
run "$work/old" "has version 1.9.0, and"
echo "the C# binding does as expected"
