# For ./run and ./check: makes sure that Debian packages are there. To be sourced.

# Whether to install without a question: where the caller says so (--yes), and where there is no terminal
# to ask at, or a service for continuous integration.
install_at_once=
if [ ! -t 0 ] || [ ! -t 2 ] || [ "${CI:-}" = true ]; then
    install_at_once=yes
fi

# confirm_install PACKAGE...: asks whether to install them; ends the program after a no.
confirm_install() {
    local answer
    if [ -n "$install_at_once" ]; then
        return 0
    fi
    echo "These packages are missing: $*" >&2
    while true; do
        if ! read -r -p "Install them? [Y/n] " answer; then
            answer=no
        fi
        case ${answer,,} in
            '' | y | yes) return 0 ;;
            n | no)
                echo "Nothing was installed. To install them yourself: apt-get install $*" >&2
                exit 1 ;;
        esac
    done
}

# install_missing PACKAGE...: installs those of the packages that are not, and nothing else.
install_missing() {
    local missing=() package
    if ! command -v dpkg-query >/dev/null; then
        echo "This is not Debian: please see that you have the counterparts of $*." >&2
        return 0
    fi
    for package in "$@"; do
        if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return 0
    fi
    confirm_install "${missing[@]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}"
    "${as_root[@]}" apt-get -qq update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq -y --no-install-recommends install "${missing[@]}" >/dev/null
}

build_packages=(cmake ninja-build g++ pkgconf python3 qtbase5-dev libqt5svg5-dev libqt5charts5-dev
    qttools5-dev qttools5-dev-tools libspnav-dev libzip-dev nec2c mpich libmpich-dev openssh-client)
qt6_packages=(qt6-base-dev qt6-svg-dev qt6-charts-dev libqt6opengl6-dev qt6-tools-dev
    qt6-l10n-tools)
