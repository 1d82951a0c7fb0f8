#!/usr/bin/env bash
# Builds the library, the receiver and the café demo, and runs them against one another.
#
#   ./demo.sh           opens the app; close its window to end. Without a display: as with --auto
#   ./demo.sh --auto    a scripted tester uses the app under a display of its own and shows the reports that arrive
set -euo pipefail

root=$(cd "$(dirname "$0")" && pwd)
build=$root/build/release
prefix=$root/build/demo
data=$root/build/demo-data
targets=(Wexel wexel-receiver cafe-menu-service wexel-demo-cafe)

case "${1:-}" in
"" | --auto) ;;
*)
    sed -n '2,6s/^# \{0,1\}//p' "$0"
    exit 2
    ;;
esac
if [ "${1:-}" = --auto ] || [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then auto=1; else auto=0; fi

mkdir -p "$data"
. "$root/scripts/demo-services.sh"
. "$root/scripts/demo-auto.sh"

step "Installing missing packages"
"$root/scripts/packages.sh" demo

step "Building"
cd "$root"
# Only the first time: a tree that test.sh configured keeps its tests, so neither script makes the other build again.
[ -f "$build/build.ninja" ] || cmake --preset release -DWEXEL_TESTS=OFF -DWEXEL_BENCHMARKS=OFF >"$data/configure.log"
cmake --build "$build" -j2 --target "${targets[@]}"
{
    cmake --install "$build" --prefix "$prefix"
    cmake --install "$build" --prefix "$prefix" --component demo
} >"$data/install.log"

step "Starting the receiver and the café's menu service"
[ "$auto" -eq 0 ] || own_home
start_receiver
start_menu
set_api_url "$receiver_url"
say "  Receiver at $receiver_url, menu at $menu_url"

if [ "$auto" -eq 1 ]; then
    open_display
    run_auto
else
    step "Opening the app; close its window to end"
    say "  The reports you send, at any time: $prefix/bin/wexel-receiver reports --data $data/receiver"
    start_host
    wait "${pids[host]}"
    "$prefix/bin/wexel-receiver" reports --data "$data/receiver"
fi
