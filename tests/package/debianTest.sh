#!/usr/bin/env bash
# Installs the packages into a fresh, minimal Debian, and lets a user there do what the README says.
#   debianTest.sh PACKAGES_FOLDER
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
packages=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The first example of the README in that language.
example() {
    awk "/^\`\`\`$1\$/ { inside = 1; next } /^\`\`\`\$/ { if (inside) exit } inside" "$here/../../README.md" >"$work/hello.$1"
}
example c
example cpp
grep -q vxShowMsg "$work/hello.c"
grep -q sign.hpp "$work/hello.cpp"

cat >"$work/user.sh" <<'USER'
set -eu
cd /tmp
cc -Wall -Werror hello.c $(pkg-config --cflags --libs vxsign) -o hello
cc hello.c $(pkg-config --static --cflags vxsign) -Wl,-Bstatic -lvxsign -Wl,-Bdynamic \
    $(pkg-config --static --libs vxsign | sed 's/-lvxsign//') -o hello-static
! ldd hello-static | grep -q vxsign
c++ -std=c++17 -Wall -Werror hello.cpp $(pkg-config --cflags --libs vxsign) -o hello-cpp
vxsim --png face.png >places &
sign=$!
while ! grep -q ^tcp places; do sleep 0.1; done
./hello | grep -x OK
./hello-static | grep -x OK
./hello-cpp
vxctl info >/dev/null
vxctl show "ROAD WORKS"
vxctl preview "ROAD WORKS" --out preview.png
python3 -c 'import vxsign; sign = vxsign.Sign(); sign.show("LANE CLOSED"); assert sign.playing()'
kill $sign
wait $sign
test -s face.png -a -s preview.png
man -w vxctl vxsim >/dev/null 2>&1 || ls /usr/share/man/man1/vxctl.1.gz /usr/share/man/man1/vxsim.1.gz
USER

# A compiler, and what the packages ask for.
mmdebstrap --quiet --variant=apt --include=g++,libc6-dev,pkg-config \
    --customize-hook="cp $(ls "$packages"/*.deb | grep -v dbgsym | tr '\n' ' ') $work/hello.c $work/hello.cpp $work/user.sh \"\$1/tmp\"" \
    --customize-hook='chroot "$1" sh -c "apt-get install --yes --no-install-recommends /tmp/*.deb"' \
    --customize-hook='chroot "$1" sh -c "ldconfig -p | grep -q libvxsign.so.2"' \
    --customize-hook='chroot "$1" runuser -u nobody -- sh /tmp/user.sh' \
    "$(. /etc/os-release && echo "$VERSION_CODENAME")" /dev/null
echo "the packages work on a bare Debian"
