#!/bin/sh
# Installs the Debian packages the build, the tests and the data import need, if any is missing.
set -eu

PACKAGES="build-essential cmake ninja-build pkgconf qt6-base-dev fonts-dejavu-core fonts-liberation2
libbenchmark-dev libsword-dev libsword-utils python3-sword sword-text-kjv sword-text-web sword-text-sparv sword-comm-mhcc
sword-dict-naves sword-dict-strongs-hebrew sword-dict-strongs-greek
xvfb xauth openbox xdotool poppler-utils qt6-l10n-tools clang-format desktop-file-utils appstream
hyperfine $*"

missing=""
for p in $PACKAGES; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing="$missing $p"
    fi
done
[ -z "$missing" ] && exit 0

echo "Installing:$missing"
if [ "$(id -u)" -eq 0 ]; then SUDO=""; else SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
# shellcheck disable=SC2086
$SUDO apt-get install -y -qq --no-install-recommends $missing
