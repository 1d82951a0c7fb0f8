# Sourced by demo.sh: starts and stops what the demo consists of, and ends all of it when the script ends.
# Needs: root (the repository), prefix (the installed tree), data (the demo's folder).
# shellcheck shell=bash disable=SC2154,SC2034

step="starting"
declare -A pids=()

say() { printf '%s\n' "$*"; }
step() {
    step="$*"
    say "* $step"
}
fail() {
    say "$*" >&2
    exit 1
}

# wait_until SECONDS COMMAND...: polls until the command succeeds; false when the time is over.
wait_until() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < deadline)) || return 1
        sleep 0.1
    done
}

# launch NAME COMMAND...: runs a program in the background; what it prints goes to $data/NAME.log.
launch() {
    local name=$1
    shift
    : >"$data/$name.log" # at once, so that nobody reads the words of an earlier run
    "$@" >"$data/$name.log" 2>&1 &
    pids[$name]=$!
}

running() { [ -n "${pids[$1]:-}" ] && kill -0 "${pids[$1]}" 2>/dev/null; }

stop() {
    [ -n "${pids[$1]:-}" ] || return 0
    kill "${pids[$1]}" 2>/dev/null || true
    wait "${pids[$1]}" 2>/dev/null || true
    unset "pids[$1]"
}

finish() {
    local status=$? name
    trap - EXIT
    for name in host receiver menu openbox xvfb; do stop "$name"; done
    [ "$status" -eq 0 ] || say "demo.sh failed at the step: $step. The programs' own words are in $data/*.log" >&2
    exit "$status"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# listening NAME: waits for the program's line "Listening on URL" and prints the URL.
listening() {
    local log=$data/$1.log
    wait_until 15 grep -q '^Listening on http' "$log" || {
        tail -n 5 "$log" >&2
        fail "$1 did not start"
    }
    sed -n '/^Listening on /{s///;p;q}' "$log"
}

plist_value() { sed -n "/<key>$1<\/key>/{n;s/.*<string>\(.*\)<\/string>.*/\1/p}" "$2"; }

# start_receiver [PORT]: sets receiver_url and dashboard_password; a free port unless one is given. Knows the clients of all
# demos.
start_receiver() {
    local plist clients=() password_file=$data/dashboard-password
    [ -s "$password_file" ] || (umask 077 && head -c 12 /dev/urandom | base64 >"$password_file")
    dashboard_password=$(cat "$password_file")
    for plist in "$root"/Demo/*/Info.plist; do
        clients+=(--client="$(plist_value APIClientID "$plist"):$(plist_value APIClientSecret "$plist")")
    done
    launch receiver "$prefix/bin/wexel-receiver" --data="$data/receiver" --listen="127.0.0.1:${1:-0}" \
        --admin-password-file="$password_file" "${clients[@]}"
    receiver_url=$(listening receiver)
}

# Under another name than the receiver's: what an app asks of the receiver's host is not recorded.
start_menu() {
    launch menu "$prefix/bin/cafe-menu-service" --listen=127.0.0.1:0
    menu_url=$(listening menu)
    menu_url=${menu_url/127.0.0.1/localhost}
}

# The backend's address stands in the library's own property list, which whoever ships the library may edit.
set_api_url() {
    local plist=$prefix/share/wexel/Info.plist
    sed -i "/<key>WEXEL_API_URL<\/key>/{n;s|<string>.*</string>|<string>$1</string>|}" "$plist"
    [ "$(plist_value WEXEL_API_URL "$plist")" = "$1" ] || fail "$plist: no string under the key WEXEL_API_URL"
}

start_cafe() {
    running menu || start_menu
    launch host "$prefix/bin/wexel-demo-cafe" --menu "$menu_url"
}
start_editor() { launch host "$prefix/bin/wexel-demo-editor"; }

use_host() { # use_host START: until the user closes it
    step "Opening the app; close its window to end"
    say "  The reports you send, at any time: $prefix/bin/wexel-receiver reports --data $data/receiver"
    "$1"
    wait "${pids[host]}"
    "$prefix/bin/wexel-receiver" reports --data "$data/receiver"
}
