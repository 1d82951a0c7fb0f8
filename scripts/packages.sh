#!/usr/bin/env bash
# The one place that knows which Debian packages the project needs.
#
#   scripts/packages.sh build|demo|test|ci     installs what is missing for that purpose; says nothing otherwise
#
# Each purpose includes the ones before it.
set -euo pipefail

build=(cmake ninja-build g++ pkg-config ca-certificates # Qt trusts the certificates of the system when it sends over HTTPS
    qt6-base-dev qt6-declarative-dev qt6-declarative-dev-tools qt6-sensors-dev qt6-svg-dev
    qt6-tools-dev qt6-l10n-tools libgl-dev
    libsqlite3-dev libpq-dev libpoco-dev libxcb-shape0-dev
    libsodium-dev libarchive-dev libturbojpeg0-dev libjs-chart.js)
demo=(xvfb xdotool openbox x11-utils imagemagick jq fonts-dejavu-core libqt6svg6
    qml6-module-qtqml qml6-module-qtqml-workerscript qml6-module-qtquick qml6-module-qtquick-window
    qml6-module-qtquick-controls qml6-module-qtquick-templates qml6-module-qtquick-layouts)
test=(libgtest-dev libgmock-dev picom openssl dbus-daemon at-spi2-core curl liblmdb-dev libbenchmark-dev
    qt6-virtualkeyboard-plugin qml6-module-qtquick-virtualkeyboard qml6-module-qt-labs-folderlistmodel
    libvalijson-dev postgresql chromium nodejs)
command -v npm >/dev/null || test+=(npm) # a nodejs from elsewhere may have it inside
ci=(git clang clang-format clang-tidy libclang-rt-14-dev)

case "${1:-}" in
build) packages=("${build[@]}") ;;
demo) packages=("${build[@]}" "${demo[@]}") ;;
test) packages=("${build[@]}" "${demo[@]}" "${test[@]}") ;;
ci) packages=("${build[@]}" "${demo[@]}" "${test[@]}" "${ci[@]}") ;;
*) sed -n '2,6s/^# \{0,1\}//p' "$0"; exit 2 ;;
esac

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing Debian packages: ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${as_root[@]}" apt-get update -q &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -yq --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    cat "$log" >&2
    echo "Could not install the packages above." >&2
    exit 1
fi
