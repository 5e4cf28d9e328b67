#!/usr/bin/env bash
# tools/kill_test.sh [rounds]: ends the headless tool and the program by SIGKILL at random moments while they save, and
# lets both save to a full disk. Their files must be whole each time: the old ones or the new ones. No part of ./test.
# Takes the programs of build/release/bin, or of TAVLON12_BIN.

tools=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
. "$tools/packages.sh"
. "$tools/display.sh"

rounds=${1:-200}
need_programs Xvfb xdotool tavlon12 tavlon12-lab

same() { cmp -s "$1" "$2"; }

# A pause of a random length up to so many milliseconds.
random_pause() {
    local pause=$((RANDOM % $1))
    sleep "$((pause / 1000)).$(printf '%03d' $((pause % 1000)))"
}

milliseconds() {
    local start=${EPOCHREALTIME//./}
    "$@" >/dev/null 2>&1
    echo $(((${EPOCHREALTIME//./} - start) / 1000 + 1))
}

# A game in a file: its comment is long, so that writing it takes a while.
write_game() {
    local comment
    comment=$(head -c 4000000 /dev/zero | tr '\0' "$2")
    printf '[Event "%s"]\r\n[Date "1"]\r\n\r\n1. {%s} 25-31 44-38 *\r\n' "$2" "$comment" >"$1.pdn"
    "$lab" load "$1.pdn" --save "$1" >/dev/null || fail "The tool does not save."
}

lab=$bin/tavlon12-lab
write_game "$work/a.tvl" a
write_game "$work/b.tvl" b

# The tool saves one game over the other.
cp "$work/a.tvl" "$work/game.tvl"
longest=$(milliseconds "$lab" load "$work/a.tvl" --save "$work/game.tvl")
old=0 new=0
for ((i = 0; i < rounds; i++)); do
    next=a
    same "$work/game.tvl" "$work/a.tvl" && next=b
    "$lab" load "$work/$next.tvl" --save "$work/game.tvl" >/dev/null &
    program=$!
    random_pause "$longest"
    kill -KILL $program 2>/dev/null
    wait $program 2>/dev/null
    program=""
    if same "$work/game.tvl" "$work/$next.tvl"; then
        new=$((new + 1))
    elif same "$work/game.tvl" "$work/a.tvl" || same "$work/game.tvl" "$work/b.tvl"; then
        old=$((old + 1))
    else
        fail "Round $i: the saved game is broken."
    fi
done
echo "saved game: killed within $longest ms, $old times the old file, $new times the new one"

# The tool adds a game to a PDN file.
"$lab" load "$work/a.tvl" --save "$work/one.pdn" >/dev/null
: >"$work/whole.pdn"
: >"$work/game.pdn"
old=0 new=0
for ((i = 0; i < rounds / 4; i++)); do
    cat "$work/whole.pdn" "$work/one.pdn" >"$work/next.pdn"
    "$lab" load "$work/a.tvl" --save "$work/game.pdn" >/dev/null &
    program=$!
    random_pause $((2 * longest))
    kill -KILL $program 2>/dev/null
    wait $program 2>/dev/null
    program=""
    if same "$work/game.pdn" "$work/next.pdn"; then
        new=$((new + 1))
        mv "$work/next.pdn" "$work/whole.pdn"
    elif same "$work/game.pdn" "$work/whole.pdn"; then
        old=$((old + 1))
    else
        fail "Round $i: the PDN file is broken."
    fi
done
echo "PDN file: $old times the old file, $new times one game more"

# The program, on a display of its own.
start_display

# A disk of its own that can be filled, where the system lets us.
mkdir "$work/disk"
mount -t tmpfs -o size=64m tmpfs "$work/disk" 2>/dev/null || echo "no disk of its own: a full disk is not tried"
install_program "$work/disk"

kept=(tavlon12.ini tavlon12.rtg tavlon12.sav)
start_program() {
    "$work/disk/tavlon12" >"$work/program.log" 2>&1 &
    program=$!
    timeout 60 xdotool search --sync --onlyvisible --name Tavlon12 windowfocus --sync || fail "The window does not open."
}

# Waits until the program has ended; boxes are closed.
await_end() {
    local i
    for ((i = 0; i < 2000; i++)); do
        kill -0 "$program" 2>/dev/null || break
        sleep 0.005
        [[ $1 == boxes && $((i % 10)) == 9 ]] && xdotool key Return
    done
    kill -0 "$program" 2>/dev/null && fail "The program does not end."
    wait "$program" 2>/dev/null
    program=""
}

start_program
xdotool key ctrl+x
await_end boxes
for name in "${kept[@]}"; do [[ -s $work/disk/$name ]] || fail "$name was not written."; done

# Line 23 is the question before the end, line 61 the game of the last run.
sed -i -e '23s/.*/ 0 \r/' -e '61s/.*/ 1 \r/' "$work/disk/tavlon12.ini"
cp "$work/a.tvl" "$work/disk/tavlon12.sav"
start_program
start=${EPOCHREALTIME//./}
xdotool key ctrl+x
await_end none
longest=$(((${EPOCHREALTIME//./} - start) / 1000))
for name in "${kept[@]}"; do cp "$work/disk/$name" "$work/$name"; done
[[ $(wc -l <"$work/tavlon12.ini") == 84 ]] || fail "The settings have not 84 lines."

unwritten=0 partly=0 written=0
for ((i = 0; i < rounds; i++)); do
    before=$(stat -c %i "${kept[@]/#/$work/disk/}")
    start_program
    xdotool key ctrl+x &
    random_pause "$longest"
    kill -KILL $program 2>/dev/null
    wait $program 2>/dev/null
    program=""
    wait $! 2>/dev/null
    for name in "${kept[@]}"; do
        same "$work/disk/$name" "$work/$name" || fail "Round $i: $name is broken."
    done
    changed=$(comm -13 <(sort <<<"$before") <(stat -c %i "${kept[@]/#/$work/disk/}" | sort) | wc -l)
    case $changed in
    0) unwritten=$((unwritten + 1)) ;;
    3) written=$((written + 1)) ;;
    *) partly=$((partly + 1)) ;;
    esac
done
beside=$(find "$work/disk" -maxdepth 1 -name '.tavlon12-*' | wc -l)
echo "program: killed within $longest ms; $unwritten times before it had replaced a file, $partly times in between," \
    "$written times behind it; $beside files left beside"

mountpoint -q "$work/disk" || exit 0
cat /dev/zero >"$work/disk/filler" 2>/dev/null
start_program
xdotool key ctrl+x
await_end boxes
for name in "${kept[@]}"; do
    same "$work/disk/$name" "$work/$name" || fail "A full disk: $name is broken."
done
cp "$work/a.tvl" "$work/old.tvl"
rm "$work/disk/filler"
cp "$work/a.tvl" "$work/disk/game.tvl"
cat /dev/zero >"$work/disk/filler" 2>/dev/null
"$lab" load "$work/b.tvl" --save "$work/disk/game.tvl" | grep '^message' || fail "A full disk is not told."
same "$work/disk/game.tvl" "$work/a.tvl" || fail "A full disk: the saved game is broken."
echo "full disk: settings, rating, autosave and saved game are whole"
