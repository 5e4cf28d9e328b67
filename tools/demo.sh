#!/usr/bin/env bash
# tools/demo.sh [screenshot.png]: plays a few moves with the mouse against the computer on a virtual display. The last
# line printed is the path of the screenshot. Takes the program of build/release/bin, or of TAVLON12_BIN.

tools=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
. "$tools/packages.sh"
. "$tools/display.sh"

screenshot=${1:-$build_dir/tavlon12-demo.png}

# Places in the window, in pixels from the corner under the menu bar, for the default skin.
window_height=689
board_left=25
board_top=32
square=38
list2_left=656
list2_top=93

need_programs Xvfb xdotool import tavlon12
# A program folder of its own: the places above are those of the default settings.
install_program "$work/bin"
start_display

"$work/bin/tavlon12" >"$work/program.log" 2>&1 &
program=$!
# Without a job entry bash adds no line of its own when the program is ended.
disown "$program"

running() { kill -0 "$program" 2>/dev/null; }
program_fault() {
    running && fail "$1"
    fail "The program ended by itself${2:-}: $(tail -n 1 "$work/program.log" | grep . || echo "it said nothing")"
}

# Sets `window`, `width` and `height` to the largest window of the program.
find_window() {
    # shellcheck disable=SC2034
    local id WINDOW X Y WIDTH HEIGHT SCREEN
    window=""
    width=0
    height=0
    for id in $(xdotool search --onlyvisible --pid "$program" 2>/dev/null); do
        eval "$(xdotool getwindowgeometry --shell "$id" 2>/dev/null)"
        if ((${WIDTH:-0} * ${HEIGHT:-0} > width * height)); then
            window=$id
            width=$WIDTH
            height=$HEIGHT
        fi
    done
    [[ -n $window ]] && ((height >= window_height))
}

for ((i = 0; i < 100; i++)); do
    running || break
    find_window && break
    sleep 0.2
done
find_window || program_fault "The program did not open its window within 20 seconds."
xdotool windowmove --sync "$window" 0 0 2>/dev/null

# The height of the menu bar depends on the fonts of the machine. Below it, in a gap between the toolbar's pictures, the first
# dark pixel is the frame of the board, which begins two pixels above the squares.
find_menu() {
    local frame
    frame=$(import -silent -window "$window" -crop "1x80+57+40" +repage -depth 8 gray:- 2>/dev/null |
        od -An -v -tu1 -w1 | awk '$1 < 90 { print NR - 1; exit }')
    [[ -n $frame ]] && menu=$((40 + frame + 2 - board_top))
}
for ((i = 0; i < 50; i++)); do
    find_menu && break
    sleep 0.2
done
[[ -n ${menu:-} ]] || program_fault "The program did not draw its board."

# What the board shows, as a checksum.
board_picture() {
    import -silent -window "$window" -crop "$((12 * square))x$((12 * square))+$board_left+$((menu + board_top))" \
        +repage rgb:- 2>/dev/null | cksum
}

# Waits until the board shows something else than $1 and then stays as it is for a second; at most $2 seconds.
# Returns 1 where it never changed.
wait_for_change() {
    local before=$1 end=$((SECONDS + $2)) last="" now calm=0 changed=1
    while ((SECONDS < end)) && running; do
        now=$(board_picture)
        [[ $now != "$before" ]] && changed=0
        if [[ $now == "$last" ]]; then calm=$((calm + 1)); else calm=0; fi
        last=$now
        ((changed == 0 && calm >= 2)) && break
        sleep 0.4
    done
    return "$changed"
}

# Boxes that opened over the window are answered with Return.
close_boxes() {
    local id
    for id in $(xdotool search --onlyvisible --pid "$program" 2>/dev/null); do
        if [[ $id != "$window" ]]; then
            xdotool windowfocus "$id" 2>/dev/null
            xdotool key Return
            sleep 0.3
        fi
    done
}

# Moves the mouse to the middle of a square such as "c5". The board starts turned: rank 1 is above, column l on the left.
mouse_to_square() {
    local column row
    column=$(($(printf '%d' "'$1") - 97))
    row=$((${1:1} - 1))
    xdotool mousemove --window "$window" $((board_left + square * (11 - column) + square / 2)) \
        $((menu + board_top + square * row + square / 2))
}

drag() {
    local step from to
    mouse_to_square "$1"
    from=$(xdotool getmouselocation --shell)
    mouse_to_square "$2"
    to=$(xdotool getmouselocation --shell)
    local x0 y0 x1 y1
    x0=$(sed -n 's/^X=//p' <<<"$from")
    y0=$(sed -n 's/^Y=//p' <<<"$from")
    x1=$(sed -n 's/^X=//p' <<<"$to")
    y1=$(sed -n 's/^Y=//p' <<<"$to")
    xdotool mousemove "$x0" "$y0" sleep 0.1 mousedown 1
    for step in 1 2 3 4 5 6; do
        xdotool mousemove $((x0 + (x1 - x0) * step / 6)) $((y0 + (y1 - y0) * step / 6)) sleep 0.05
    done
    xdotool mouseup 1
}

click_first_legal_move() {
    xdotool mousemove --window "$window" $((list2_left + 25)) $((menu + list2_top + 9)) sleep 0.1 click 1
}

played=0
answered=0
# play_one words command... : one move of the person by `command`, and the computer's answer.
play_one() {
    local words=$1 before after
    shift
    before=$(board_picture)
    "$@"
    sleep 0.7
    close_boxes
    after=$(board_picture)
    if [[ $after == "$before" ]]; then
        say "  $words: not played"
        return 0
    fi
    played=$((played + 1))
    if wait_for_change "$after" 20; then
        answered=$((answered + 1))
        say "  $words; the computer has answered"
    else
        say "  $words"
    fi
    close_boxes
    # The lists open again once the answer stands on the board.
    sleep 0.5
}

sleep 1
say "Playing on display $DISPLAY:"
play_one "c5-d6, dragged with the mouse" drag c5 d6
for move in 2 3 4; do
    running || break
    play_one "move $move, clicked in the list of legal moves" click_first_legal_move
done
running || program_fault "" " while it played"

rm -f "$screenshot"
import -silent -window "$window" "$screenshot" 2>/dev/null
[[ -s $screenshot ]] || fail "The screenshot could not be written to $screenshot."
((played > 0)) || fail "The program did not answer to the mouse: see $screenshot"
((answered > 0)) || fail "The computer did not answer: see $screenshot"
say "$played moves played, $answered answered. Screenshot:"
say "$screenshot"
