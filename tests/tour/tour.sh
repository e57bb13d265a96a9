#!/usr/bin/env bash
# A tour of the program on a virtual display: signs in as a user of the sample book, enters a movement with key presses, sees
# the new balance, visits the windows and leaves. Pictures, a page that shows twelve of them, and the tour's own copy of
# program and book stay in the target.
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
source "$here/display.sh"
source "$here/contact_sheet.sh"

user=ΜΑΡΙΑ
password=2580
code=100
description='ΠΩΛΗΣΗ ΣΕ ΠΕΡΙΠΤΕΡΟ'
amount=123,45
amount_in_cents=12345

book_says() {
    "$bin/tour_check" "$book" "$today" "$1"
}

book_has() {
    [[ $(book_says "$1") == "$2" ]]
}

prepare() {
    rm -rf "$target"
    mkdir -p "$target/settings"
    export XDG_CONFIG_HOME=$target/settings
    if [[ $program == "$target/program" ]]; then
        mkdir "$program"
        cp "$bin/lorvan" "$bin/lorvan-books" "$bin/lorvan-data" "$program/"
    fi
    "$program/lorvan-data" demo "$book" >/dev/null
    "$program/lorvan-data" path "$book" >/dev/null
}

# The book of the path file is the one that the list begins with.
look_through_door() {
    start_program "$program/lorvan-books" --choose
    go_to_window '^Βιβλία'
    picture door
    press Escape
    wait_for_end
}

sign_in() {
    start_program "$program/lorvan-books" # as from the desktop: with one book that it knows it becomes the program
    go_to_window 'Δώστε κωδικό πρόσβασης'
    write "$user"
    press Return
    write "$password"
    press Return
    picture sign-in
    press Return
    go_to_window '^Lorvan'
    wait_until "σήμα χρήσης" book_has marker 1
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
    picture typed
    press Return
    wait_until "η κίνηση στο βιβλίο" book_has movements $((movements + 1))
    picture new-balance
    book_has last "$code|$description|$amount_in_cents|0" || fail "άλλη κίνηση στο βιβλίο: $(book_says last)"
    book_has balance $((balance + amount_in_cents)) || fail "υπόλοιπο $(book_says balance) μετά το $balance"
    say "υπόλοιπο πριν $balance, μετά $(book_says balance) λεπτά"
}

# The day before, with a movement half typed and the rest of its description offered.
see_day() {
    press Prior
    write "$code"
    press Return
    write Π
    picture day
    press BackSpace shift+Tab
}

# see WINDOW KEYS TEXT NAME: opens a window beside the main one with a key, types into it, takes its picture and closes it.
see() {
    press "$2"
    go_to_window "$1"
    [[ -z $3 ]] || write "$3"
    sleep 1
    picture "$4"
    press Escape
    wait_until "κλείνει το $1" window_is_gone "$1"
    go_to_window '^Lorvan'
}

see_windows() {
    see '^Αναζήτηση' ctrl+f 'ΧΟΝΔΡΙΚΗ >500' search
    see '^Ιστορικό' ctrl+h '' history
    see '^Εικόνα του βιβλίου' ctrl+g '' picture
    write "$code"
    see '^Καρτέλα' ctrl+k '' card
    see '^Οδηγίες' F1 '' help
}

# The first of the tools; the check itself ends before the picture is taken.
see_check() {
    press F10
    sleep 0.5
    press Return
    go_to_window '^Έλεγχος'
    sleep 3
    go_to_window '^Έλεγχος'
    picture check
    press Escape
    wait_until "κλείνει ο έλεγχος" window_is_gone '^Έλεγχος'
    go_to_window '^Lorvan'
}

see_tabs() {
    press ctrl+Next
    press Tab Tab Tab Tab Tab Tab Down F2 # the first code of the list, loaded
    picture codes
    press ctrl+Next
    sleep 1
    picture printing
    press ctrl+Prior ctrl+Prior
}

preview_day() {
    press ctrl+p
    go_to_window 'Ταμείο ημέρας'
    picture preview
    press ctrl+e
    wait_until "κλείνει η προεπισκόπηση" window_is_gone 'Ταμείο ημέρας'
    go_to_window '^Lorvan'
}

leave() {
    # Description, expense, memorandum, cheque, insert, list, closing, exit.
    press Tab Tab Tab Tab Tab Tab Tab Tab Return
    go_to_window 'Εξοδος από το πρόγραμμα'
    picture exit
    press Return
    wait_for_end
    book_has marker 0 || fail "το σήμα χρήσης δεν ελευθερώθηκε"
}

trap end_everything EXIT
prepare
start_display
look_through_door
sign_in
enter_movement
see_day
see_windows
see_check
preview_day
see_tabs
leave
write_contact_sheet
say "τέλος, όλα σωστά"
