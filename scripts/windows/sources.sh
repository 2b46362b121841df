# For the scripts in this folder: the cache folder, and Debian's source packages in it. To be sourced.

readonly target=x86_64-w64-mingw32

# read_cache_options ARGUMENT...: sets cache and sources_list.
read_cache_options() {
    cache=${XDG_CACHE_HOME:-$HOME/.cache}/kest/windows
    sources_list=
    while [ $# -gt 0 ]; do
        case $1 in
            --cache | --sources)
                if [ $# -lt 2 ]; then
                    echo "$0: $1 needs a name behind it" >&2
                    exit 2
                fi
                if [ "$1" = --cache ]; then cache=$2; else sources_list=$(realpath "$2"); fi
                shift 2 ;;
            *)
                echo "$0 knows --cache FOLDER and --sources FILE, and not $1" >&2
                exit 2 ;;
        esac
    done
    mkdir -p "$cache"
    cache=$(realpath "$cache")
}

# lock_cache: two builds in one folder would destroy each other's work, so a second one waits. The lock is
# held until this program and what it has started have ended.
lock_cache() {
    exec 9>"$cache/lock"
    if ! flock --nonblock 9; then
        echo "Another build uses $cache: waiting until it has ended"
        flock 9
    fi
}

# apt-get with lists and downloads in the cache folder: the machine's own stay as they are.
own_apt() {
    apt-get -qq -o Dir::Etc::SourceList="$cache/apt/sources.list" -o Dir::Etc::SourceParts=- \
        -o Dir::State::Lists="$cache/apt/lists" -o Dir::Cache="$cache/apt/cache" \
        -o APT::Sandbox::User="" "$@"
}

# The machine's own lists of packages, as lists of source packages.
machine_sources() {
    apt-get indextargets --format 'deb-src $(REPO_URI) $(CODENAME) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' | sort -u
}

# need_sources SOURCE...: ends the program unless these source packages can be had.
need_sources() {
    mkdir -p "$cache/apt/lists/partial" "$cache/apt/cache/archives/partial"
    if [ -n "$sources_list" ]; then
        cp "$sources_list" "$cache/apt/sources.list"
    else
        machine_sources >"$cache/apt/sources.list"
    fi
    if own_apt update && own_apt --print-uris --only-source source "$@" >/dev/null; then
        return 0
    fi
    cat >&2 <<END
The source packages $* are not in the machine's package sources. This line in a file of its own
enables them for this script alone, called with --sources FILE:

    deb-src ADDRESS-OF-A-DEBIAN-MIRROR bookworm main
END
    exit 1
}

# unpack_source SOURCE FOLDER: puts the source package with Debian's patches into the folder.
unpack_source() {
    local downloads=$cache/downloads/$1
    mkdir -p "$downloads"
    rm -f "$downloads"/*.dsc
    (cd "$downloads" && own_apt --only-source --download-only source "$1")
    rm -rf "$2"
    dpkg-source --no-check -x "$downloads"/*.dsc "$2" >/dev/null
}

# logged NAME COMMAND...: its output appears when it fails.
logged() {
    local log=$cache/$1.log
    echo "$1"
    if ! "${@:2}" >"$log" 2>&1; then
        tail -30 "$log" >&2
        echo "$1 failed; the whole output is in $log" >&2
        exit 1
    fi
}
