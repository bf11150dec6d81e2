#!/usr/bin/env bash
# Keeps dependencies pointing downwards: a file includes what lies in its own folder or below it, never beside or above.
#   arrows.sh SOURCE_FOLDER
set -euo pipefail
cd "$1"

# arrows FOLDER PREFIX LAYER...: the layers of a tree of sources, the lowest first. Each is a folder, or several that do not
# know each other, with commas between; "." has the files beside the folders. PREFIX stands in front of a layer where it
# is included.
arrows()
{
    local folder=$1 prefix=$2
    shift 2
    grep -rH --include='*.h' --include='*.cpp' "^#include \"$prefix" "$folder" |
        awk -v folder="$folder/" -v prefix="$prefix" -v layers="$*" '
            function layer(path) { return path ~ /\// ? substr(path, 1, index(path, "/") - 1) : "." }
            BEGIN {
                for (i = split(layers, rows, " "); i > 0; --i)
                    for (j = split(rows[i], names, ","); j > 0; --j)
                        height[names[j]] = i
            }
            {
                file = substr($0, 1, index($0, ":") - 1)
                from = layer(substr(file, length(folder) + 1))
                split($0, quoted, "\"")
                to = layer(substr(quoted[2], length(prefix) + 1))
                if (!(from in height) || !(to in height)) {
                    print file " includes " quoted[2] ": one of the two lies in no layer"
                    wrong = 1
                } else if (to != from && height[to] >= height[from]) {
                    print file " includes " quoted[2] ", which does not lie below it"
                    wrong = 1
                }
            }
            END { exit wrong }'
}

result=0
arrows src "" words platform util thread,channels vxBaseCMD vxComm,playlist,reports content api || result=1
arrows src/vxComm vxComm/ shared . FileCtrl,MB,Ondra,Read,Tarsis,Traffic,Write,XModem || result=1
arrows sim sim/ platform protocol command files state logs monitor boards,devices,play,tiles,traffic,zones . \
    face content stage server web main || result=1
arrows tools/vxbridge vxbridge/ journal mqtt,work sign metrics service . || result=1
exit $result
