# SPDX-License-Identifier: GPL-3.0-or-later
# What ./run and ./test share. Sourced, not run; expects $root, the top of the tree.

. "$root/scripts/packages.sh"

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# install_missing PACKAGE...: installs what dpkg does not know as installed, as root or through sudo.
install_missing() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        sudo -n true 2>/dev/null || [ -t 0 ] && command -v sudo >/dev/null ||
            fail "Missing packages. Please run:  apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    echo "Installing ${#missing[@]} packages: ${missing[*]}"
    mkdir -p "$root/build"
    if ! { "${as_root[@]}" apt-get update && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"; } >"$root/build/install.log" 2>&1 </dev/null; then
        tail -n 20 "$root/build/install.log" >&2
        fail "Installing failed. Please run:  apt-get install ${missing[*]}"
    fi
}

# build PRESET [TARGET...]: configures and builds without noise; the log is shown only on failure.
build() {
    local preset=$1 log="$root/build/$1.log"
    shift
    mkdir -p "$root/build"
    # The same objects serve every checkout of the tree.
    export CCACHE_BASEDIR="$root" CCACHE_NOHASHDIR=1
    [ -w "${HOME:-/nowhere}" ] || export CCACHE_DIR="${CCACHE_DIR:-$root/build/ccache}"
    echo "Building ($preset) ..."
    (cd "$root" && cmake --preset "$preset") >"$log" 2>&1 || build_failed "$preset" "$log"
    local targets=()
    [ $# -gt 0 ] && targets=(--target "$@")
    (cd "$root" && NINJA_STATUS="[%f/%t] " cmake --build --preset "$preset" "${targets[@]}") 2>&1 |
        tee -a "$log" | show_progress
    [ "${PIPESTATUS[0]}" -eq 0 ] || build_failed "$preset" "$log"
}

# Ninja's "[done/total]" as one line that rewrites itself, or as a line now and then where there is no terminal.
show_progress() {
    local line last=0 now
    while IFS= read -r line; do
        [[ $line == \[*/*\]* ]] || continue
        if [ -t 1 ]; then
            printf '\r\033[K  %s' "${line%%]*}]"
        else
            now=$SECONDS
            if ((now - last >= 20)); then
                last=$now
                echo "  ${line%%]*}]"
            fi
        fi
    done
    [ -t 1 ] && printf '\r\033[K'
    return 0
}

build_failed() {
    grep -nE 'error|Error|FAILED' -A 4 "$2" | head -n 60 >&2
    fail "The build ($1) failed; the whole log is $2"
}

# start_display: a virtual screen with a window manager; sets DISPLAY and display_pids.
start_display() {
    local ready
    ready=$(mktemp)
    Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$ready" >/dev/null 2>&1 &
    display_pids=($!)
    local i
    for i in $(seq 100); do
        [ -s "$ready" ] && break
        sleep 0.1
    done
    [ -s "$ready" ] || fail "The virtual X server did not start."
    DISPLAY=":$(tr -d '\n' <"$ready")"
    export DISPLAY
    rm -f "$ready"
    openbox >/dev/null 2>&1 &
    display_pids+=($!)
}

stop_display() {
    local pid
    for pid in "${display_pids[@]}"; do
        kill "$pid" 2>/dev/null
    done
    wait "${display_pids[@]}" 2>/dev/null
}
