# Sourced by demo.sh: a tester who uses the café app with real mouse and keyboard events under a display of its own,
# marks a bug and reports it, reports another while the receiver is away, and shows what the receiver got.
# shellcheck shell=bash disable=SC2154,SC2016

# Where the app has what the tester presses, in its window of 390 x 844.
declare -A spots=(
    [first_item]="110 230" [add_to_cart]="275 812" [cart_tab]="195 812" [profile_tab]="325 812"
    [developer_row]="195 428" [description]="195 137" [report_with_screenshot]="195 197"
    # of the reporting flow, which lies over the window
    [bug]="65 754" [next]="350 28" [blur]="146 812" [palette]="341 812" [purple]="84 812" [inspect]="130 568"
    [submit]="345 28")
width=390 height=844

# A home of its own, so that nothing of the user's is read or written.
own_home() {
    export HOME=$data/home
    export XDG_RUNTIME_DIR=$HOME/run QT_QUICK_BACKEND=software QT_FORCE_STDERR_LOGGING=1 LC_ALL=C.UTF-8
    unset XDG_DATA_HOME XDG_CONFIG_HOME XDG_CACHE_HOME XDG_STATE_HOME WAYLAND_DISPLAY QT_QPA_PLATFORM DBUS_SESSION_BUS_ADDRESS
    rm -rf "$HOME" "$data/receiver"
    mkdir -p "$XDG_RUNTIME_DIR"
    chmod 700 "$XDG_RUNTIME_DIR"
    reports_folder=$HOME/.local/share/wexel-demo-cafe/Documents/WexelSavedDataDirectory
}

open_display() {
    local number=$data/display
    rm -f "$number"
    launch xvfb Xvfb -displayfd 7 -screen 0 460x920x24 -nolisten tcp 7>"$number"
    wait_until 15 test -s "$number" || fail "Xvfb did not start"
    DISPLAY=:$(<"$number")
    export DISPLAY
    launch openbox openbox
}

# The app's main window: the visible one of its size.
find_window() {
    local id geometry
    running host || fail "The app ended: $(tail -n 3 "$data/host.log")"
    for id in $(xdotool search --onlyvisible --class wexel-demo-cafe 2>/dev/null); do
        geometry=$(xwininfo -id "$id" 2>/dev/null) || continue
        if grep -q "Width: $width$" <<<"$geometry" && grep -q "Height: $height$" <<<"$geometry"; then
            window=$id
            return 0
        fi
    done
    return 1
}

host_said() { grep -qF -- "$1" "$data/host.log"; }

expect() { # expect SECONDS TEXT: waits for a line of the app's log
    wait_until "$1" host_said "$2" || fail "The app did not say \"$2\" within $1 s"
}

press() { # press SPOT EXPECTED: clicks, then waits for the app to say so
    local x y
    read -r x y <<<"${spots[$1]}"
    xdotool mousemove --window "$window" "$x" "$y" click 1
    [ $# -lt 2 ] || expect 10 "$2"
}

around() { # around X Y WIDTH HEIGHT: the places of a circle as a hand draws one
    awk -v x="$1" -v y="$2" -v w="$3" -v h="$4" 'BEGIN {
        for (i = 0; i <= 40; i++) { a = -1.2 + i * 6.6 / 40; r = 1 + 0.06 * sin(2 * a) + i * 0.002
            printf "%d %d ", x + w / 2 * r * cos(a), y + h / 2 * r * sin(a) } }'
}

drag() { # drag X Y X Y...: presses at the first place and draws through the others
    local x=$1 y=$2 steps=${steps:-12} i
    xdotool mousemove --window "$window" "$x" "$y" mousedown 1
    while shift 2 && [ $# -ge 2 ]; do
        for ((i = 1; i <= steps; i++)); do
            xdotool mousemove --window "$window" $((x + ($1 - x) * i / steps)) $((y + ($2 - y) * i / steps))
        done
        x=$1 y=$2
    done
    xdotool mouseup 1
}

settle() { # until two pictures in a row are the same: nothing moves any more
    local before="" now
    for _ in {1..50}; do
        now=$(picture - | md5sum)
        [ "$now" != "$before" ] || return 0
        before=$now
        sleep 0.1
    done
    return 0 # a clock or a cursor may blink
}

picture() { # picture FILE: what the display shows of the app's window
    local x y
    x=$(xwininfo -id "$window" | sed -n 's/.*Absolute upper-left X: *//p')
    y=$(xwininfo -id "$window" | sed -n 's/.*Absolute upper-left Y: *//p')
    import -window root -crop "${width}x$height+$x+$y" +repage "png:$1"
}

open_app() {
    start_cafe
    wait_until 30 find_window || fail "The app's window did not appear"
    expect 15 "Menu: ready"
    expect 20 "Authentication succeeded"
    settle
}

to_developer_page() {
    press profile_tab "Page: Profile"
    settle
    press developer_row "Page: Developer"
    settle
}

describe() { # describe TEXT
    press description
    xdotool key --clearmodifiers ctrl+a
    xdotool type --delay 15 "$1"
    settle
}

report() { press report_with_screenshot "Report with a screenshot: $1"; } # report TEXT

received() { # received FILTER: the reports that the receiver has, as jq sees them
    "$prefix/bin/wexel-receiver" reports --data="$data/receiver" --json 2>/dev/null | jq -r "$@"
}
has_report() { [ "$(received --arg text "$1" 'map(select(.report.description == $text)) | length')" = 1 ]; }
has_histories() { # has_histories TEXT: what the tester did before shows in the report
    received -e --arg text "$1" '.[] | select(.report.description == $text) | .report as $r |
        ($r.blackbox.cpu_usage_history | length > 1) and ($r.blackbox.network_usage_history | length > 0) and
        ($r.sessions | length > 0) and ($r.log.user_taps | any(.view == "Wexel")) and ($r.log.user_taps | length > 2) and
        ($r.log.network_requests | any(.statuc_code == "200" and (.url | endswith("/menu.json"))))' >"$data/histories"
}
stored() { find "$reports_folder" -name '*.wexelreportfile' 2>/dev/null | wc -l; }
stored_is() { [ "$(stored)" = "$1" ]; }

# The banner's green check is at the lower edge.
banner_shows() {
    local share
    share=$(picture - | convert png:- -crop 390x50+0+794 -fill black +opaque '#00C274' -format '%[fx:mean*w*h]' info:)
    [ "${share%.*}" -gt 20 ]
}

banner_is_gone() { ! banner_shows; }

show_report() { # show_report TEXT
    received --arg text "$1" '.[] | select(.report.description == $text) | .report as $r |
        "  description   \($r.description)\(if $r.tester_email then ", by " + $r.tester_email else "" end)",
        "  received      \(.received) from \(.bundle_id)",
        "  reported      \($r.issue_reported_time) (\($r.timezone))",
        "  device        \($r.device), \($r.os_version)",
        "  application   \($r.app_version) (\($r.build_version)), view \($r.current_view)",
        "  screen        \($r.screen_width) x \($r.screen_height)",
        "  memory        \($r.used_memory | round) of \($r.available_memory | round) MB used, \($r.used_application_memory | round) MB by the app",
        "  network       \([$r.network_type // "not known", $r.network_name // empty] | join(" "))",
        "  black box     \($r.blackbox | to_entries | map("\(.value | length) \(.key | rtrimstr("_history") | gsub("_"; " "))") | join(", "))",
        "  sessions      \($r.sessions // [] | map(.state) | join(" "))",
        ($r.log.user_taps // [] | .[-5:][] | "  tap           \(.class_name) on \(.view)\(if .property == "" then "" else ", its \(.property)" end)"),
        ($r.log.network_requests // [] | .[-3:][] | "  request       \(.method) \(.url): \(.statuc_code), \(.response_body | length) characters in \(.duration * 1000 | round) ms"),
        "  quick facts   \($r.quick_facts | gsub("\n"; "; "))"'
}

save_screenshot() { # save_screenshot TEXT FILE
    local path
    path=$(received --arg text "$1" '.[] | select(.report.description == $text) | .screenshot.path')
    cp "$path" "$2"
    [ "$(identify -format %k "$2")" -gt 100 ] || fail "$2: the received screenshot is not a picture of the app"
}

run_auto() {
    local first="The total is wrong after a second flat white" second="This one was sent while offline" port
    local tester="ada@example.org"
    step "Opening the app"
    open_app
    picture "$data/1-menu.png"

    step "Putting a flat white into the cart"
    press first_item "Page: Flat white"
    settle
    picture "$data/2-item.png"
    press add_to_cart "Cart: 1 items"
    settle

    step "Marking the bug: the floating button, a stroke, another in purple, a blurred price"
    press bug
    settle
    # shellcheck disable=SC2046
    steps=1 drag $(around 197 722 70 44) # the cart's badge
    press palette
    settle
    picture "$data/3-palette.png"
    press purple
    settle
    # shellcheck disable=SC2046
    steps=1 drag $(around 95 380 70 34) # a price
    press blur
    drag 250 345 330 345
    settle
    picture "$data/4-marked.png"

    step "Describing it"
    press next
    settle
    xdotool type --delay 12 "$first"
    xdotool key Tab
    xdotool type --delay 12 "$tester"
    settle
    picture "$data/5-compose.png"
    press inspect
    settle
    picture "$data/6-inspect.png"
    xdotool key Escape
    settle

    step "Submitting it"
    press submit
    expect 10 "Got request to upload data"
    wait_until 5 banner_shows || fail "No banner confirms the report"
    picture "$data/7-banner.png"
    wait_until 30 has_report "$first" || fail "The receiver has no such report after 30 s"
    wait_until 15 stored_is 0 || fail "The report was received, but its file is still in $reports_folder"
    say "  The receiver has it:"
    show_report "$first"
    received -e --arg text "$first" --arg tester "$tester" \
        '.[] | select(.report.description == $text) | .report.tester_email == $tester' >/dev/null ||
        fail "The report lacks the tester's e-mail address"
    has_histories "$first" || fail "The report lacks taps, requests, sessions or samples"
    save_screenshot "$first" "$data/received-screenshot.jpg"

    wait_until 10 banner_is_gone || fail "The banner does not go" # it lies over the tabs

    step "Sending a report while the receiver is away"
    port=${receiver_url%/}
    port=${port##*:}
    stop receiver
    to_developer_page
    describe "$second"
    report "$second"
    expect 30 "Upload failed, not removing"
    stored_is 1 || fail "$reports_folder holds $(stored) reports, 1 was expected"
    say "  It waits on disk: $(find "$reports_folder" -name '*.wexelreportfile')"

    step "Bringing the receiver back and starting the app again"
    stop host
    start_receiver "$port"
    open_app
    wait_until 30 has_report "$second" || fail "The stored report did not arrive within 30 s"
    wait_until 15 stored_is 0 || fail "The stored report arrived, but its file is still there"
    say "  It arrived, and its file is gone."
    show_report "$second"

    say "Done: two reports sent, two received."
    say "The received screenshot:   $data/received-screenshot.jpg"
    say "Pictures of every screen:  $data/1-menu.png to 7-banner.png"
    say "The reports in a browser:  $prefix/bin/wexel-receiver --data $data/receiver; the password is $dashboard_password"
}
