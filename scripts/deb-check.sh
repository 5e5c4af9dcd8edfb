#!/bin/sh
# Builds the Debian package, installs it with apt into a fresh Debian 12 root made by debootstrap,
# and starts the program there as an ordinary user under Xvfb: the user's program folder must
# appear in their own data folder and nothing may be written under /usr. Needs root, debootstrap
# and the Debian mirror. Not part of "make test": it takes minutes (docs/PACKAGING.md).
# usage: sh scripts/deb-check.sh [BUILD_DIR]
set -eu
build=${1:-build}
mirror=${DEBIAN_MIRROR:-http://deb.debian.org/debian}
started=$(date +%s)
step() { echo "== $* ($(($(date +%s) - started)) s)"; }
fail() { echo "FAIL: $*"; exit 1; }

[ "$(id -u)" -eq 0 ] || fail "run as root (debootstrap and chroot)"
sh scripts/setup.sh debootstrap
step "building the package"
make build BUILD="$build" >/dev/null
(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls -t "$build"/quillstone_*.deb | head -1)
[ -f "$deb" ] || fail "no package built"

root=$(mktemp -d /var/tmp/quillstone-deb-check.XXXXXX)
chmod 0755 "$root" # the root of the new system, which its users must be able to enter
cleanup() {
    for m in dev/pts dev proc sys; do umount "$root/$m" 2>/dev/null || true; done
    rm -rf "$root"
}
trap cleanup EXIT

step "debootstrap bookworm from $mirror"
debootstrap --variant=minbase bookworm "$root" "$mirror" >/dev/null || fail "debootstrap (is the mirror reachable?)"
for m in proc sys dev dev/pts; do mount --bind "/$m" "$root/$m"; done
cp "$deb" "$root/tmp/"
in_root() { chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root DEBIAN_FRONTEND=noninteractive "$@"; }

step "apt install ./$(basename "$deb")"
in_root apt-get update -qq
in_root sh -c "cd /tmp && apt-get install -y -qq --no-install-recommends ./$(basename "$deb") xvfb xauth >/dev/null" ||
    fail "the package does not install"
in_root useradd -m reader

step "starting the program as an ordinary user"
touch "$root/tmp/.started"
sleep 1
in_root su reader -c "cd ~ && QUILLSTONE_QUIT_AFTER_START=1 xvfb-run -a quillstone" || fail "the program did not start"
in_root su reader -c "quillstone-cli passage 'John 3:16'" | grep -q "God so loved" || fail "quillstone-cli as the user"

folder=$root/home/reader/.local/share/quillstone
[ -f "$folder/window.ini" ] || fail "no program folder in the user's data folder"
[ -L "$folder/KJV" ] || fail "the translations are not linked from the installed data"
written=$(find "$root/usr" -newer "$root/tmp/.started" 2>/dev/null | head -5)
[ -z "$written" ] || fail "written under /usr: $written"
step "ok: installed from the package, started as a user, program folder in ~/.local/share/quillstone"
