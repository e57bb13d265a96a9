#!/usr/bin/env bash
# The tour of a screen reader: the program on a virtual display with an accessibility bus of its own, and spoken_tour.py.
# Status 77, and a line that says so, where there is no such bus.
#   spoken_tour.sh FOLDER-OF-EXECUTABLES TARGET-FOLDER
set -euo pipefail
export LC_ALL=C.UTF-8

here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
bin=$(realpath -- "$1")
target=$(realpath --canonicalize-missing -- "$2")
source "$here/display.sh"

skip() {
    say "ΠΑΡΑΛΕΙΠΕΤΑΙ: $*"
    exit 77
}

look_for_bus() {
    /usr/bin/python3 -c 'import gi; gi.require_version("Atspi", "2.0"); from gi.repository import Atspi' 2>/dev/null ||
        skip "λείπουν τα gir1.2-atspi-2.0 και python3-gi"
    dbus-run-session -- true 2>/dev/null || skip "δεν ξεκινά δίαυλος συνεδρίας (dbus-daemon)"
    unset XDG_RUNTIME_DIR # the bus takes a socket of its own
    SPOKEN_SESSION=1 exec dbus-run-session -- "$here/spoken_tour.sh" "$bin" "$target" 2> >(grep -v '^dbus-daemon\|SpiRegistry' >&2)
}

prepare() {
    rm -rf "$target"
    mkdir -p "$target/settings" "$target/program"
    export XDG_CONFIG_HOME=$target/settings QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
    cp "$bin/lorvan" "$bin/lorvan-data" "$target/program/"
    "$target/program/lorvan-data" demo "$target/book" >/dev/null
    "$target/program/lorvan-data" path "$target/book" >/dev/null
}

[[ -n ${SPOKEN_SESSION:-} ]] || look_for_bus
trap end_everything EXIT
prepare
start_display
start_program "$target/program/lorvan"
/usr/bin/python3 "$here/spoken_tour.py" ΜΑΡΙΑ 2580 || fail "ο γύρος του αναγνώστη οθόνης σταμάτησε"
