# What the scripts at the root need from Debian 12, and how they get it. Sourced, not run.

# To configure and build everything, and to run the program: its fonts, and the window system's plugins with Qt's.
build_packages=(
    g++ cmake ninja-build pkg-config
    qt6-base-dev qt6-svg-dev
    libsqlcipher-dev libssl-dev libarchive-dev libcups2-dev libxlsxwriter-dev
    libgtest-dev
    fonts-liberation fonts-noto-core
)

# To run the program on a display of its own and press its keys.
tour_packages=(xvfb xdotool x11-xkb-utils imagemagick)

# To run every test: the stock shell of the database engine, what counts as our formatting, what reads the includes, a wider
# font, readers of PDF and XLSX files, a print server, of which the tests start one of their own, and what a screen reader
# speaks with programs through.
test_packages=("${tour_packages[@]}" sqlcipher clang-format python3 util-linux fonts-dejavu-core poppler-utils unzip
    cups-daemon cups-client at-spi2-core dbus-daemon gir1.2-atspi-2.0 python3-gi)

# To make the Debian package: icons in all sizes, what the programs depend on.
package_packages=(librsvg2-bin dpkg-dev file)

# To look through that package, and to install it into a Debian tree of its own.
package_test_packages=(lintian appstream desktop-file-utils mmdebstrap)

# install_missing PACKAGE...: asks apt for those that are not there, and leaves apt alone when all are.
install_missing() {
    local package status missing=() as_root=()
    for package in "$@"; do
        status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
        [[ $status == installed ]] || missing+=("$package")
    done
    ((${#missing[@]})) || return 0

    echo "Εγκατάσταση: ${missing[*]}"
    if ((EUID != 0)); then
        command -v sudo >/dev/null || {
            echo "Χρειάζεται ο διαχειριστής: apt-get install ${missing[*]}" >&2
            return 1
        }
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update --quiet
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install --yes --quiet --no-install-recommends \
        -o DPkg::Lock::Timeout=300 "${missing[@]}"
}
