# Shared by ./play and ./test (sourced, not run): which packages the project needs, how they get here, and the
# configuring of build/release.
# shellcheck disable=SC2034,SC2119,SC2120

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build_dir=$root/build/release

# Names of Debian and Ubuntu. Of alternatives, "a|b", the first that the release has is taken: before Qt 6.4.1 the
# headers of Qt Svg came as libqt6svg6-dev. Of Qt Svg only the library is used, not its plugins, which have packages of
# their own since Debian 13.
build_packages=(g++ cmake ninja-build make) # GCC optimises across files in parallel by make
window_packages=(qt6-base-dev "qt6-svg-dev|libqt6svg6-dev")
test_packages=(libgtest-dev)
display_packages=(xvfb xdotool imagemagick)

say() { printf '%s\n' "$*"; }
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# Sets `missing` to those of the named packages that are not installed.
find_missing() {
    local installed package
    # shellcheck disable=SC2068
    installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' ${@//|/ } 2>/dev/null)
    missing=()
    for package in "$@"; do
        grep -qxF "${package//|/ installed$'\n'} installed" <<<"$installed" || missing+=("$package")
    done
}

# Puts one name in the place of alternatives in `missing`: the first that apt has under that very name, else the last.
choose_alternatives() {
    local i name
    for i in "${!missing[@]}"; do
        [[ ${missing[i]} == *"|"* ]] || continue
        for name in ${missing[i]//|/ }; do
            apt-cache show "$name" 2>/dev/null | grep -qxF "Package: $name" && break
        done
        missing[i]=$name
    done
}

# Turns apt's progress lines into one line that counts up (a line per tenth where the output is no terminal). All
# other lines go to the file $1.
show_apt_progress() {
    local kind percent whole shown=-1 label
    while IFS= read -r line; do
        case $line in
        dlstatus:* | pmstatus:*)
            IFS=: read -r kind _ percent _ <<<"$line"
            whole=${percent%%.*}
            [[ $whole =~ ^[0-9]+$ ]] || continue
            label="  installing"
            [[ $kind == dlstatus ]] && label="  fetching"
            if [[ -t 1 ]]; then
                [[ $label$whole == "$shown" ]] || printf '\r%-14s %3d %%' "$label" "$whole"
                shown=$label$whole
            else
                [[ $label$((whole / 10)) == "$shown" ]] || printf '%-14s %3d %%\n' "$label" "$whole"
                shown=$label$((whole / 10))
            fi
            ;;
        *) printf '%s\n' "$line" >>"$1" ;;
        esac
    done
    if [[ -t 1 && $shown != -1 ]]; then printf '\n'; fi
}

# Sets `packages_fault` to one line that says what apt's output $1 complains about.
explain_apt_output() {
    if grep -qE 'Temporary failure resolving|Could not resolve|Could not connect|Network is unreachable|Unable to connect' <<<"$1"; then
        packages_fault="the package server cannot be reached (no network?)"
    else
        packages_fault=$(sed -nE 's/^(dpkg: error processing package .*) \(.*/\1/p' <<<"$1" | head -n 1)
        packages_fault=${packages_fault:-$(sed -nE 's/^E: *//p' <<<"$1" | tail -n 1)}
        packages_fault=${packages_fault:-apt-get failed}
    fi
}

# install_packages package... : installs those that are missing, after naming them and their size. On failure it returns
# 1 and leaves the reason, one line, in `packages_fault`.
install_packages() {
    local as_root=() output summary size log status command
    packages_fault=""
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        for command in c++ cmake ninja; do
            if ! command -v "$command" >/dev/null; then
                packages_fault="there is no apt on this system, and '$command' is not installed (wanted, by their Debian names: ${*%%|*})"
                return 1
            fi
        done
        say "No apt on this system: going on with what is installed."
        return 0
    fi
    find_missing "$@"
    ((${#missing[@]} == 0)) && return 0
    say "Missing packages: ${missing[*]%%|*}"
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            packages_fault="installing packages takes root or sudo; as root run: apt-get install --no-install-recommends ${missing[*]%%|*}"
            return 1
        fi
        as_root=(sudo)
    fi
    say "Reading the package lists ..."
    # apt-get update ends well without a network too: whether the packages can be had shows in the next step.
    output=$("${as_root[@]}" env LC_ALL=C apt-get -o DPkg::Lock::Timeout=120 update 2>&1)
    choose_alternatives
    # A dry question needs no lock and no root; apt answers it with the sums and then "no".
    summary=$(LC_ALL=C apt-get -o Debug::NoLocking=1 install --no-install-recommends --assume-no "${missing[@]}" 2>&1)
    if ! grep -q 'newly installed' <<<"$summary"; then
        explain_apt_output "$output"$'\n'"$summary"
        return 1
    fi
    size=$(sed -nE 's/^Need to get ([^ ]+ [kMG]?B).*/\1/p' <<<"$summary")
    say "To install: $(sed -nE 's/^[0-9]+ upgraded, ([0-9]+) newly installed.*/\1/p' <<<"$summary") packages," \
        "${size:-nothing} to fetch," \
        "$(sed -nE 's/^After this operation, ([^ ]+ [kMG]?B).*/\1/p' <<<"$summary") on disk."
    log=$(mktemp)
    "${as_root[@]}" env LC_ALL=C DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=120 \
        -o APT::Status-Fd=1 -q install -y --no-install-recommends "${missing[@]}" </dev/null 2>&1 | show_apt_progress "$log"
    status=${PIPESTATUS[0]}
    find_missing "$@"
    if ((status != 0 || ${#missing[@]} != 0)); then
        explain_apt_output "$(<"$log")"
        packages_fault+=" (all that apt said is in $log)"
        return 1
    fi
    rm -f "$log"
}

# configured name=value... : whether build/release is ready to build, in this folder, with these cache values.
configured() {
    local value
    [[ -f $build_dir/build.ninja && -f $build_dir/CMakeCache.txt ]] || return 1
    # A copied or moved project brings a build folder that CMake refuses.
    grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$build_dir/CMakeCache.txt" || return 1
    for value in "$@"; do
        grep -qxF "${value%%=*}:BOOL=${value#*=}" "$build_dir/CMakeCache.txt" || return 1
    done
}

# Whether CMake found the window's toolkit when it last looked.
configured_with_qt() { grep -q '^Qt6_DIR:PATH=/' "$build_dir/CMakeCache.txt" 2>/dev/null; }

# configure argument... : runs CMake, and shows what it says only where it fails.
configure() {
    local output fresh=()
    # Of another folder: begin anew.
    if [[ -f $build_dir/CMakeCache.txt ]] && ! configured; then fresh=(--fresh); fi
    say "Configuring ..."
    if ! output=$(cd "$root" && cmake "${fresh[@]}" "$@" 2>&1); then
        printf '%s\n' "$output" >&2
        return 1
    fi
    grep -E '^-- .*(not found|not built)' <<<"$output" | sed 's/^-- //'
    return 0
}
