#!/usr/bin/env bash
# Builds the release preset, runs the benchmarks and prints their figures as a Markdown table.
#
#   Benchmarks/run.sh [startup] [save] [drain] [taps] [canvas] [flow] [requests] [idle] [receiver]      all of them without an argument
#
# Environment: RUNS (20) fresh processes per start-up figure, DRAINS (3) drains, REPORTS (500) reports in each, IDLE (120)
# seconds of doing nothing.
# CLIENTS (200) that send UPLOADS (2000) reports to the receiver at once.
# Needs about 6 GB in $TMPDIR, curl, jq, and nginx for the comparison of the receiver.
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${RUNS:-20} drains=${DRAINS:-3} reports=${REPORTS:-500} idle=${IDLE:-120} clients=${CLIENTS:-200} uploads=${UPLOADS:-2000}
build=$PWD/build/release
export QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software LC_ALL=C.UTF-8
export QT_LOGGING_RULES='wexel=true' QT_FORCE_STDERR_LOGGING=1

work=$(mktemp -d)
receiver=
nginx=
cleanup() {
    [ -z "$receiver" ] || kill "$receiver" 2>/dev/null || true
    [ -z "$nginx" ] || kill "$nginx" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

# An install prefix with the hosts beside the library, whose bundle names the receiver.
install_prefix() {
    cmake --preset release >/dev/null
    cmake --build "$build" -j2 --target wexel-receiver Wexel SaveBenchmark TapBenchmark CanvasBenchmark FlowBenchmark RequestBenchmark ReceiverLoad \
        BenchmarkCoreHost BenchmarkCoreHostWithout BenchmarkQuickHost BenchmarkQuickHostWithout >/dev/null
    mkdir -p "$work/bin" "$work/share/wexel" "$work/$(library_folder)"
    cp "$build"/bin/{wexel-receiver,SaveBenchmark,TapBenchmark,CanvasBenchmark,FlowBenchmark,RequestBenchmark,ReceiverLoad,Benchmark*Host*} "$work/bin/"
    cp -L "$build/$(library_folder)/libWexel.so.1" "$work/$(library_folder)/"
    cat >"$work/bin/Info.plist" <<-PLIST
	<plist version="1.0"><dict><key>CFBundleIdentifier</key><string>org.wexel.benchmark</string>
	<key>Wexel</key><dict><key>APIClientID</key><string>benchmark</string>
	<key>APIClientSecret</key><string>secret</string></dict></dict></plist>
	PLIST
}
library_folder() { sed -n 's/^CMAKE_INSTALL_LIBDIR:PATH=//p' "$build/CMakeCache.txt"; }

# A receiver with an empty data folder; sets $url.
start_receiver() {
    stop_receiver
    rm -rf "$work/data" "$work/url"
    "$work/bin/wexel-receiver" --data "$work/data" --listen 127.0.0.1:0 --client benchmark:secret \
        >"$work/url" 2>/dev/null &
    receiver=$!
    until grep -qs '^Listening on ' "$work/url"; do sleep 0.05; done
    url=$(sed -n 's/^Listening on //p' "$work/url")
    sed "s|http://127.0.0.1:8787/|$url|" "$build/share/wexel/Info.plist" >"$work/share/wexel/Info.plist"
}
stop_receiver() {
    [ -n "$receiver" ] || return 0
    kill "$receiver"
    wait "$receiver" || true
    receiver=
}

# host NAME ARGUMENT...: in the home folder of this run; log lines are dropped
host() { HOME=$work/home XDG_DATA_HOME=$work/home/data XDG_RUNTIME_DIR=$work/home "$work/bin/$1" "${@:2}" 2>/dev/null; }
documents=$work/home/data/BenchmarkHost/Documents
fresh_home() { rm -rf "${work:?}/home" && mkdir -p "$documents"; }

# percentile P NAME FILE: of the values printed under that name
percentile() { awk -v name="$2" '$1 == name { print $2 }' "$3" | sort -n | awk -v p="$1" '{ v[NR] = $1 }
    END { i = int(NR * p / 100 + 0.999999); print v[i < 1 ? 1 : i] }'; }
row() { printf '| %s | %s |\n' "$1" "$2"; }
divided() { awk -v a="$1" -v b="$2" -v f="$3" 'BEGIN { printf f, a / b }'; }

startup() {
    local kind other i
    for kind in Core Quick; do
        start_receiver
        fresh_home
        for i in $(seq "$runs"); do host "Benchmark${kind}Host" start; done >"$work/times"
        for other in Host HostWithout; do
            for i in 1 2 3 4 5; do host "Benchmark$kind$other" start 2000; done >"$work/memory$other"
        done
        row "$kind host: \`startWithInvocationEvents\`, main thread" \
            "median $(percentile 50 start_us "$work/times") µs, p95 $(percentile 95 start_us "$work/times") µs"
        for i in resident private; do
            local with without
            with=$(percentile 50 ${i}_kb "$work/memoryHost") without=$(percentile 50 ${i}_kb "$work/memoryHostWithout")
            row "$kind host: $i memory with / without the library" \
                "$(divided "$with" 1024 %.1f) / $(divided "$without" 1024 %.1f) MB: +$(divided $((with - without)) 1024 %.1f) MB"
        done
    done
}

make_screenshots() {
    [ -d "$work/screenshots" ] && return
    mkdir "$work/screenshots"
    local i
    for i in $(seq "$reports"); do head -c 1000000 /dev/urandom >"$work/screenshots/$i.jpg"; done
}

save() {
    make_screenshots
    fresh_home
    QT_LOGGING_RULES='' "$work/bin/SaveBenchmark" "$documents" "$work"/screenshots/*.jpg 2>/dev/null >"$work/times"
    row 'saving a report with a 1 MB screenshot, synced' "median $(divided "$(percentile 50 save_us "$work/times")" 1000 %.1f) ms, p95 $(divided "$(percentile 95 save_us "$work/times")" 1000 %.1f) ms"
    local kind what
    for kind in Core Quick; do
        start_receiver
        fresh_home
        host "Benchmark${kind}Host" report 50 >"$work/times"
        for what in report screenshot; do
            row "$kind host: \`autoReport\`$([ $what = report ] || echo ' with a screenshot'), main thread" \
                "median $(percentile 50 ${what}_us "$work/times") µs, p95 $(percentile 95 ${what}_us "$work/times") µs"
        done
    done
}

# The same bytes from one curl over one connection: each file, then its report.
curl_config() {
    local token file own
    token=$(curl -sSf -d 'grant_type=client_credentials&client_id=benchmark&client_secret=secret' \
        "${url}auth/oauth2/token" | jq -r .access_token)
    for file in "$work"/screenshots/*.jpg; do
        # The receiver takes each report once.
        own=$work/$(basename "$file" .jpg).json
        jq --arg title "$file" '.title = $title' "$work/report.json" >"$own"
        printf 'url = "%sapi/1.0/files"\nheader = "Authorization: Bearer %s"\nheader = "Expect:"\n' "$url" "$token"
        printf 'form = "file=@%s"\noutput = "/dev/null"\nfail\nsilent\nnext\n' "$file"
        printf 'url = "%sapi/1.0/issue_tracking/apps/org.wexel.benchmark"\n' "$url"
        printf 'header = "Authorization: Bearer %s"\nheader = "Content-Type: application/json"\n' "$token"
        printf 'data-binary = "@%s"\noutput = "/dev/null"\nfail\nsilent\nnext\n' "$own"
    done | sed '$d'
}
expect_reports() {
    local arrived
    arrived=$("$work/bin/wexel-receiver" reports --data "$work/data" --json | jq length)
    [ "$arrived" -eq "$reports" ] || { echo "$1: $arrived reports arrived instead of $reports" >&2; exit 1; }
}
drain() {
    make_screenshots
    local begin
    for _ in $(seq "$drains"); do
        start_receiver
        fresh_home
        QT_LOGGING_RULES='' "$work/bin/SaveBenchmark" "$documents" "$work"/screenshots/*.jpg 2>/dev/null >/dev/null
        sync
        host BenchmarkCoreHost drain
        expect_reports host >&2
        "$work/bin/wexel-receiver" reports --data "$work/data" --json | jq '.[0].report' >"$work/report.json"
        start_receiver
        curl_config >"$work/curl"
        sync
        begin=$(date +%s%N)
        curl -K "$work/curl"
        echo "curl_ms $((($(date +%s%N) - begin) / 1000000))"
        expect_reports curl >&2
    done >"$work/times"
    local host curl
    host=$(percentile 50 drain_ms "$work/times") curl=$(percentile 50 curl_ms "$work/times")
    row "draining $reports stored reports of 1 MB" \
        "$(divided "$host" 1000 %.1f) s, $(divided $((reports * 1000)) "$host" %.0f) reports/s, $(divided $((reports * 1000)) "$host" %.0f) MB/s"
    row 'the same bytes by curl, one connection' "$(divided "$curl" 1000 %.1f) s; the host takes $(divided "$host" "$curl" %.2f) times that"
    row 'peak resident memory of the draining host' "$(divided "$(percentile 50 peak_kb "$work/times")" 1024 %.1f) MB"
}

requests() {
    mkdir -p "$work/requests"
    "$work/bin/RequestBenchmark" "$work/requests" >"$work/times"
    local size name
    for size in $(cut -d' ' -f1 "$work/times" | uniq); do
        local -A of=()
        while read -r name value; do of[$name]=$value; done < <(sed -n "s/^$size //p" "$work/times")
        row "a small request, with $size records already" \
            "${of[recorded_us]} µs, plain ${of[plain_us]} µs: $(divided "${of[recorded_us]}" "${of[plain_us]}" %.2f) times; processor time of the host's thread $(divided $((of[recorded_thread_us] - of[plain_thread_us])) 1 %+d) µs, of the process $(divided $((of[recorded_cpu_us] - of[plain_cpu_us])) 1 %+d) µs"
        row "one more record in a history of ${of[history_kb]} KB" \
            "$(divided "${of[push_us]}" 1000 %.1f) ms in the background; its write $(divided "${of[flush_us]}" 1000 %.0f) ms and ${of[written_kb]} KB"
    done
}

taps() {
    fresh_home
    "$work/bin/TapBenchmark" "$work/home" 2>/dev/null >"$work/times"
    row 'hit-test hook: an event that is no press' "median $(percentile 50 other_ns "$work/times") ns"
    row 'hit-test hook: a press within 10 ms of another' "median $(percentile 50 repeated_ns "$work/times") ns, p95 $(percentile 95 repeated_ns "$work/times") ns"
    row 'hit-test hook: a press recorded, among 1,000 items' \
        "median $(divided "$(percentile 50 recorded_ns "$work/times")" 1000 %.0f) µs, p95 $(divided "$(percentile 95 recorded_ns "$work/times")" 1000 %.0f) µs"
}

canvas() {
    "$work/bin/CanvasBenchmark" --benchmark_repetitions=9 --benchmark_format=csv 2>/dev/null \
        | awk -F, '/_median/ { gsub(/"|_median/, "", $1); printf "%s %.1f\n", $1, $3 / 1000 }' >"$work/times"
    local count size
    for count in 100 1000 10000 100000; do
        row "smoothing a stroke of $count points" "$(canvas_us "smooth/$count") µs"
    done
    row 'drawing a stroke of 2000 points on 390 × 844, from scratch' "$(canvas_us strokeFromScratch/2000) µs"
    row 'the same where its last point changed it' "$(canvas_us strokeOnePointLonger/2000) µs"
    for size in 390/844 3840/2160; do
        row "a dab of blur on ${size/\// × }" "$(canvas_us "dab/$size") µs"
    done
}
canvas_us() { percentile 50 "$1" "$work/times"; }

# Ten flows in each of four processes.
flow() {
    local kind title i
    for kind in quick widgets; do
        title=$([ $kind = quick ] && echo 'Quick host' || echo 'Widgets host')
        for i in 1 2 3 4; do
            fresh_home
            QT_LOGGING_RULES='' host FlowBenchmark $kind 10
        done >"$work/times"
        row "$title: picture of its window" "$(percentile 50 screenshot_us "$work/times") µs"
        row "$title: invocation to the editor's first frame, the first flow" \
            "median $(flow_first open_ms 50) ms, p95 $(flow_first open_ms 95) ms"
        row "$title: the same for later flows" "median $(percentile 50 open_ms "$work/times") ms"
        row "$title: taking a stroke of 200 points into the image" "$(percentile 50 bake_us "$work/times") µs"
        row "$title: resident memory before, with the first flow, after it, after the third and after the tenth" \
            "$(flow_memory) MB"
        row "$title: Next to the compose screen's first frame" "median $(percentile 50 compose_ms "$work/times") ms, p95 $(percentile 95 compose_ms "$work/times") ms"
        row "$title: Submit to the window gone, 400 ms of it an animation" "median $(percentile 50 submit_ms "$work/times") ms"
        for i in animating typing scrolling; do
            row "$title: frames over 16 ms, $i" "$(awk -v a=$i '$NF == a { late += $2; all += $4 } END { print late " of " all }' "$work/times")"
        done
    done
}
flow_first() { # flow_first NAME PERCENTILE: of the first of that name in each process
    awk -v name="$1" '$1 == "screenshot_us" { seen = 0 } $1 == name && !seen++ { print }' "$work/times" >"$work/first"
    percentile "$2" "$1" "$work/first"
}
flow_memory() { # of the last process
    tac "$work/times" | sed '/^screenshot_us/q' | tac | awk '$1 == "closed_mb" { closed[n++] = $2 } $1 == "flow_mb" && !open { open = $2 }
        END { printf "%.1f / %.1f / %.1f / %.1f / %.1f", closed[0], open, closed[1], closed[3], closed[10] }'
}

# All hosts at once, each in a home of its own. Before that they fill the histories: taps and requests, if they can, and
# a minute of samples.
idle() {
    local warm=65 kind other name pids=()
    start_receiver
    for kind in Core Quick; do
        for other in Host HostWithout; do
            name=Benchmark$kind$other
            mkdir -p "$work/idle/$name"
            HOME=$work/idle/$name XDG_DATA_HOME=$work/idle/$name XDG_RUNTIME_DIR=$work/idle/$name \
                "$work/bin/$name" idle $((warm * 1000)) $((idle * 1000)) "${url/127.0.0.1/localhost}" \
                >"$work/idle/$name.figures" 2>"$work/idle/$name.log" &
            pids+=($!)
        done
    done
    wait "${pids[@]}"
    for kind in Core Quick; do
        idle_row "$kind" 'CPU time, percent of one core' cpu_us "$(divided "$idle" 1 '%.0f0000')" %.3f
        idle_row "$kind" 'written to the disk, KB/s' written_bytes $((idle * 1024)) %.1f
        idle_row "$kind" 'wake-ups of threads per second' wakeups "$idle" %.1f
        idle_row "$kind" 'resident memory, MB' resident_kb 1024 %.1f
    done
}
idle_row() { # idle_row KIND TITLE NAME DIVISOR FORMAT
    local with without
    with=$(percentile 50 "$3" "$work/idle/Benchmark$1Host.figures")
    without=$(percentile 50 "$3" "$work/idle/Benchmark$1HostWithout.figures")
    row "$1 host, idle for $idle s, histories full: $2, with / without the library" \
        "$(divided "$with" "$4" "$5") / $(divided "$without" "$4" "$5")"
}

# The receiver and nginx, which stores the same bodies but syncs nothing, one after the other on the same disk.
receiver() {
    local size=$((1024 * 1024))
    start_receiver
    load wexel "$url" "$size"
    load_row "wexel-receiver" "$(peak_memory "$receiver")"
    stop_receiver
    if ! command -v nginx >/dev/null; then
        echo "nginx is not installed: no comparison" >&2
        return
    fi
    start_nginx
    load put "http://127.0.0.1:$nginx_port/" "$size"
    load_row "nginx storing the same uploads, without a sync" "$(peak_memory $(pgrep -P "$nginx") "$nginx")"
    kill "$nginx"
    wait "$nginx" || true
}
load() { "$work/bin/ReceiverLoad" "$1" "$2" "$clients" "$uploads" "$3" >"$work/load"; }
load_row() {
    row "$1: $uploads reports with a screenshot of 1 MB, $clients clients at once" \
        "$(figure reports_per_second %.0f) reports/s, median $(figure median_ms %.0f) ms, p99 $(figure p99_ms %.0f) ms, peak memory $2 MB"
}
figure() { awk -v name="$1" -v format="$2" '$1 == name { printf format, $2 }' "$work/load"; }
peak_memory() { # peak_memory PID...: of all together, in MB
    for process; do sed -n 's/^VmHWM:\s*\([0-9]*\) kB/\1/p' "/proc/$process/status"; done |
        awk '{ sum += $1 } END { printf "%.0f", sum / 1024 }'
}
start_nginx() {
    nginx_port=18787
    mkdir -p "$work/nginx/stored" "$work/nginx/temp"
    cat >"$work/nginx/conf" <<-CONF
	daemon off; pid $work/nginx/pid; error_log $work/nginx/errors; worker_processes 2;
	$([ "$(id -u)" -ne 0 ] || echo 'user root;')
	events { worker_connections 1024; }
	http {
	    access_log off; client_max_body_size 64m; client_body_temp_path $work/nginx/temp;
	    server { listen 127.0.0.1:$nginx_port; root $work/nginx/stored; location / { dav_methods PUT; } }
	}
	CONF
    nginx -e "$work/nginx/errors" -c "$work/nginx/conf" &
    nginx=$!
    until curl -s -o /dev/null "http://127.0.0.1:$nginx_port/"; do sleep 0.05; done
}

[ $# -gt 0 ] || set -- startup save drain taps canvas flow requests idle receiver
install_prefix
printf '| What | Figure |\n|---|---|\n'
for benchmark; do "$benchmark"; done
