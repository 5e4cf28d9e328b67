# Shared by the scripts that run the program on a virtual display (sourced, not run): a folder for their work, in `work`,
# and the display. Both are gone when the script ends, and so is the program `program`, if one runs.
# shellcheck shell=bash disable=SC2034,SC2154

bin=${TAVLON12_BIN:-$build_dir/bin}
work=$(mktemp -d)
server=""
program=""
# shellcheck disable=SC2329
clean_up() {
    [[ -n $program ]] && kill -KILL "$program" 2>/dev/null
    [[ -n $server ]] && kill "$server" 2>/dev/null
    wait 2>/dev/null
    mountpoint -q "$work/disk" && umount "$work/disk"
    rm -rf "$work"
}
trap clean_up EXIT
trap 'exit 1' INT TERM HUP

# need_programs program... : ends the script where one of these is missing. Our own are looked for in the program folder.
need_programs() {
    local program
    for program in "$@"; do
        if [[ $program == tavlon12* ]]; then
            [[ -x $bin/$program ]] || fail "There is no $program in $bin: cmake --build $build_dir --target $program"
        else
            command -v "$program" >/dev/null || fail "This script needs $program (packages: ${display_packages[*]})."
        fi
    done
}

# install_program folder : copies the program with its data to a folder, without the settings that a player has made.
install_program() {
    local folder
    mkdir -p "$1"
    cp "$bin/tavlon12" "$1/"
    for folder in "$bin"/*/; do
        if [[ -d $folder ]]; then cp -r "$folder" "$1/"; fi
    done
}

# Starts the display. The server finds a free number by itself and writes it once it listens.
start_display() {
    local i
    : >"$work/number"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$work/number" >"$work/server.log" 2>&1 &
    server=$!
    for ((i = 0; i < 100; i++)); do
        [[ -s $work/number ]] && break
        kill -0 "$server" 2>/dev/null || break
        sleep 0.1
    done
    [[ -s $work/number ]] || fail "The virtual display did not start: $(tail -n 1 "$work/server.log")"
    DISPLAY=:$(<"$work/number")
    export DISPLAY
    # Of the caller's own screen nothing may leak in: neither its platform nor its scale.
    unset WAYLAND_DISPLAY XAUTHORITY QT_SCALE_FACTOR QT_FONT_DPI QT_SCREEN_SCALE_FACTORS
    mkdir "$work/home" "$work/run"
    chmod 700 "$work/run"
    export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8 HOME=$work/home XDG_RUNTIME_DIR=$work/run
}
