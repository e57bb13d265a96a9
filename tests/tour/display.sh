# A virtual display, key presses on it and pictures of it. Sourced, not run; needs $target, the folder for pictures and logs.
# A program that is waited for is $program_id; the window that has the keyboard is $window.
patience=60 # seconds

fail() {
    echo "tour: $*" >&2
    [[ ! -s $target/program.log ]] || sed 's/^/  program: /' "$target/program.log" >&2
    [[ -z ${DISPLAY:-} ]] || import -window root "$target/failure.png" 2>/dev/null || true
    exit 1
}

say() {
    echo "tour: $*"
}

# wait_until WHAT COMMAND...: asks again and again until the command succeeds.
wait_until() {
    local what=$1 deadline=$((SECONDS + patience))
    shift
    until "$@"; do
        ((SECONDS < deadline)) || fail "έληξε ο χρόνος: $what"
        [[ -z ${program_id:-} ]] || kill -0 "$program_id" 2>/dev/null || fail "το πρόγραμμα τελείωσε: $what"
        sleep 0.05
    done
}

window_called() {
    xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1
}

window_is_there() {
    window=$(window_called "$1") && [[ -n $window ]]
}

window_is_gone() {
    [[ -z $(window_called "$1") ]]
}

# Without a window manager nobody else gives a window the keyboard.
window_has_keyboard() {
    window_is_there "$1" && xdotool windowfocus "$window" 2>/dev/null && [[ $(xdotool getwindowfocus -f) == "$window" ]]
}

go_to_window() {
    wait_until "παράθυρο $1" window_has_keyboard "$1"
}

# picture NAME: of the place of $window, with whatever lies over it, once two in a row are alike and nothing is being painted.
picture() {
    local before='' now WINDOW X Y WIDTH HEIGHT SCREEN
    eval "$(xdotool getwindowgeometry --shell "$window")"
    for ((try = 0; try < 50; ++try)); do
        now=$(import -window root -crop "${WIDTH}x$HEIGHT+$X+$Y" rgb:- | sha256sum)
        [[ $now != "$before" ]] || break
        before=$now
        sleep 0.1
    done
    import -window root -crop "${WIDTH}x$HEIGHT+$X+$Y" +repage -strip "$target/$1.png"
    say "εικόνα $1.png"
}

write() {
    xdotool type --delay 15 -- "$1"
}

press() {
    xdotool key --delay 15 "$@"
}

start_display() {
    local number
    mkfifo "$target/display"
    # Without auto-repeat (-r), since a busy machine holds keys down for long.
    Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp -noreset -r 3>"$target/display" 2>"$target/display.log" &
    display_server=$!
    read -r -t "$patience" number <"$target/display" || fail "η εικονική οθόνη δεν ξεκίνησε"
    rm "$target/display"
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY
    setxkbmap us,gr
}

# start_program COMMAND...
start_program() {
    LSAN_OPTIONS=suppressions=$here/system-leaks.txt:print_suppressions=0 \
        QT_QPA_PLATFORM=xcb "$@" >"$target/program.log" 2>&1 &
    program_id=$!
}

# The program ends by itself, without a complaint.
wait_for_end() {
    local status=0
    timeout "$patience" tail --pid="$program_id" -f /dev/null || fail "το πρόγραμμα δεν τελειώνει"
    wait "$program_id" || status=$?
    program_id=
    ((status == 0)) || fail "το πρόγραμμα τελείωσε με $status"
}

end_everything() {
    [[ -z ${program_id:-} ]] || kill "$program_id" 2>/dev/null || true
    [[ -z ${display_server:-} ]] || kill "$display_server" 2>/dev/null || true
    wait
}
