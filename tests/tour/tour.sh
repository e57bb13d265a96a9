#!/usr/bin/env bash
# A short tour of the program on a virtual display: signs in as a user of the sample book, enters a movement with key
# presses, sees the new balance and leaves. Pictures and the tour's own copy of program and book stay in the target.
#   tour.sh FOLDER-OF-EXECUTABLES TARGET-FOLDER [PROGRAM-FOLDER]
# With a program folder the programs in it are run where they are, as installed ones, and the path file is the user's.
set -euo pipefail
export LC_ALL=C.UTF-8 # xdotool reads Greek by the locale

here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
bin=$(realpath -- "$1")
target=$(realpath --canonicalize-missing -- "$2")
program=${3:-$target/program}
book=$target/book
today=$(date +%Y%m%d)
patience=60

user=ΜΑΡΙΑ
password=2580
code=100
description='ΠΩΛΗΣΗ ΣΕ ΠΕΡΙΠΤΕΡΟ'
amount=123,45
amount_in_cents=12345

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
        [[ -z ${lorvan:-} ]] || kill -0 "$lorvan" 2>/dev/null || fail "το πρόγραμμα τελείωσε: $what"
        sleep 0.05
    done
}

book_says() {
    "$bin/tour_check" "$book" "$today" "$1"
}

book_has() {
    [[ $(book_says "$1") == "$2" ]]
}

window_called() {
    xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1
}

window_is_there() {
    window=$(window_called "$1") && [[ -n $window ]]
}

# Without a window manager nobody else gives a window the keyboard.
window_has_keyboard() {
    window_is_there "$1" && xdotool windowfocus "$window" 2>/dev/null && [[ $(xdotool getwindowfocus -f) == "$window" ]]
}

go_to_window() {
    wait_until "παράθυρο $1" window_has_keyboard "$1"
}

# Two pictures alike, one after the other: nothing is being painted.
picture() {
    local before='' now
    for ((try = 0; try < 50; ++try)); do
        now=$(import -window root rgb:- | sha256sum)
        [[ $now != "$before" ]] || break
        before=$now
    done
    import -window root "$target/$1.png"
    say "εικόνα $1.png"
}

write() {
    xdotool type --delay 15 -- "$1"
}

press() {
    xdotool key --delay 15 "$@"
}

end_everything() {
    [[ -z ${lorvan:-} ]] || kill "$lorvan" 2>/dev/null || true
    [[ -z ${display_server:-} ]] || kill "$display_server" 2>/dev/null || true
    wait
}

prepare() {
    rm -rf "$target"
    mkdir -p "$target/settings"
    export XDG_CONFIG_HOME=$target/settings
    if [[ $program == "$target/program" ]]; then
        mkdir "$program"
        cp "$bin/lorvan" "$bin/lorvan-data" "$program/"
    fi
    "$program/lorvan-data" demo "$book" >/dev/null
    "$program/lorvan-data" path "$book" >/dev/null
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

start_program() {
    LSAN_OPTIONS=suppressions=$here/system-leaks.txt:print_suppressions=0 \
        QT_QPA_PLATFORM=xcb "$program/lorvan" >"$target/program.log" 2>&1 &
    lorvan=$!
}

sign_in() {
    go_to_window 'Δώστε κωδικό πρόσβασης'
    write "$user"
    press Return
    write "$password"
    press Return
    picture 1-sign-in
    press Return
    go_to_window '^Lorvan'
    wait_until "σήμα χρήσης" book_has marker 1
    picture 2-today
}

enter_movement() {
    local movements balance
    movements=$(book_says movements)
    balance=$(book_says balance)
    write "$code"
    press Return
    write "$description"
    press Return
    write "$amount"
    press Return Return Return
    picture 3-typed
    press Return
    wait_until "η κίνηση στο βιβλίο" book_has movements $((movements + 1))
    picture 4-new-balance
    book_has last "$code|$description|$amount_in_cents|0" || fail "άλλη κίνηση στο βιβλίο: $(book_says last)"
    book_has balance $((balance + amount_in_cents)) || fail "υπόλοιπο $(book_says balance) μετά το $balance"
    say "υπόλοιπο πριν $balance, μετά $(book_says balance) λεπτά"
}

preview_day() {
    press ctrl+p
    wait_until "προεπισκόπηση" window_has_keyboard 'Ταμείο ημέρας'
    picture 5-preview
    press Escape
    go_to_window '^Lorvan'
}

leave() {
    # Description, expense, memorandum, cheque, insert, list, closing, exit.
    press Tab Tab Tab Tab Tab Tab Tab Tab Return
    go_to_window 'Εξοδος από το πρόγραμμα'
    picture 6-exit
    press Return
    local status=0
    timeout "$patience" tail --pid="$lorvan" -f /dev/null || fail "το πρόγραμμα δεν τελειώνει"
    wait "$lorvan" || status=$?
    lorvan=
    ((status == 0)) || fail "το πρόγραμμα τελείωσε με $status"
    book_has marker 0 || fail "το σήμα χρήσης δεν ελευθερώθηκε"
}

trap end_everything EXIT
prepare
start_display
start_program
sign_in
enter_movement
preview_day
leave
say "τέλος, όλα σωστά"
