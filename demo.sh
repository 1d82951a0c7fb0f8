#!/usr/bin/env bash
# Builds the library, the receiver and the demos, and runs a demo against the receiver.
#
#   ./demo.sh            opens the café app; close its window to end. Without a display: as with --auto
#   ./demo.sh --auto     a scripted tester uses the café app under a display of its own and shows the reports that arrive
#   ./demo.sh --widgets  opens the notebook app; close its window to end
set -euo pipefail

root=$(cd "$(dirname "$0")" && pwd)
build=$root/build/release
prefix=$root/build/demo
data=$root/build/demo-data
targets=(Wexel wexel-receiver cafe-menu-service wexel-demo-cafe wexel-demo-editor)

mode=${1:-}
[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && display=1 || display=0
case "$mode$display" in
0 | --auto?) mode=--auto ;;
1 | --widgets1) ;;
--widgets0)
    echo "--widgets opens a window, and there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set." >&2
    exit 1
    ;;
*)
    sed -n '2,7s/^# \{0,1\}//p' "$0"
    exit 2
    ;;
esac

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

step "Starting the receiver"
[ "$mode" != --auto ] || own_home
start_receiver
set_api_url "$receiver_url"
say "  Receiver at $receiver_url, where its dashboard is too (password $dashboard_password)"

case "$mode" in
--auto)
    open_display
    run_auto
    ;;
--widgets) use_host start_editor ;;
*) use_host start_cafe ;;
esac
