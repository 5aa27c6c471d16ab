# Shared by the project's scripts: paths, Debian packages, Wine prefixes and X displays.
# Sourced, not run.

QL_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
QL_BUILD=${QL_BUILD:-$QL_ROOT/build}
QL_BIN=$QL_BUILD/bin

export WINEDEBUG=${WINEDEBUG:--all}
# No Mono or Gecko installers: the program needs neither, and they would ask questions.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}

ql_die() { echo "error: $*" >&2; exit 1; }
ql_say() { echo "== $*" >&2; }

QL_PACKAGES=(cmake make g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
             g++-mingw-w64-i686-posix binutils-mingw-w64-i686 wine wine64 fonts-wine
             xvfb xauth x11-utils imagemagick googletest libstb-dev)

# Installs the Debian packages that are missing; does nothing when all are there.
ql_install_packages() {
    local missing=() p
    for p in "${QL_PACKAGES[@]}"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    ql_say "installing Debian packages: ${missing[*]}"
    local sudo=
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || ql_die "missing packages (${missing[*]}) and no sudo to install them"
        sudo=sudo
    fi
    $sudo apt-get update -q || ql_die "apt-get update failed"
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends "${missing[@]}" \
        || ql_die "could not install: ${missing[*]}"
}

# Builds the program (library, .exe and resource libraries) for the device's 32-bit word size
# too, warnings as errors, so pointer-width and structure-size mistakes stop the build. Nothing of
# it is run.
ql_build_32() {
    local dir=$QL_BUILD/i686
    if [ ! -f "$dir/CMakeCache.txt" ]; then
        cmake -S "$QL_ROOT" -B "$dir" -DCMAKE_TOOLCHAIN_FILE="$QL_ROOT/cmake/mingw-w64-i686.cmake" \
            -DCMAKE_BUILD_TYPE=Release -DQL_BUILD_TESTS=OFF -DCMAKE_CXX_FLAGS=-Werror >/dev/null \
            || ql_die "cmake configuration of the 32-bit build failed"
    fi
    cmake --build "$dir" -j "$(nproc)" --target ql_options -- --no-print-directory >"$dir/build.log" 2>&1 \
        || { tail -n 60 "$dir/build.log" >&2; ql_die "32-bit build failed (full log: $dir/build.log)"; }
}

# Configures the build tree once.
ql_configure() {
    [ -f "$QL_BUILD/CMakeCache.txt" ] && return 0
    cmake -S "$QL_ROOT" -B "$QL_BUILD" -DCMAKE_TOOLCHAIN_FILE="$QL_ROOT/cmake/mingw-w64.cmake" \
        -DCMAKE_BUILD_TYPE=Release >/dev/null || ql_die "cmake configuration failed"
}

# Configures (once) and builds the given targets, or everything.
ql_build() {
    ql_configure
    local targets=()
    [ $# -gt 0 ] && targets=(--target "$@")
    cmake --build "$QL_BUILD" -j "$(nproc)" "${targets[@]}" -- --no-print-directory >"$QL_BUILD/build.log" 2>&1 \
        || { tail -n 60 "$QL_BUILD/build.log" >&2; ql_die "build failed (full log: $QL_BUILD/build.log)"; }
}

QL_DEVICE_DIR='drive_c/Program Files/Orvane/Quillory'

# Creates a Wine prefix with Tahoma installed, once; takes the prefix path and, for a prefix whose
# windows should live inside one Wine desktop window, that desktop's size.
ql_ensure_prefix() {
    local prefix=$1 desktop=${2:-}
    if [ -f "$prefix/.ql-ready" ]; then
        ql_fail_crashes_fast "$prefix"
        return 0
    fi
    ql_say "creating Wine prefix $prefix"
    mkdir -p "$prefix"
    WINEPREFIX=$prefix wineboot -i >/dev/null 2>&1 || ql_die "wineboot failed for $prefix"
    local font
    for font in tahoma.ttf tahomabd.ttf marlett.ttf; do
        [ -f "/usr/share/wine/fonts/$font" ] || ql_die "/usr/share/wine/fonts/$font missing (package fonts-wine)"
        cp "/usr/share/wine/fonts/$font" "$prefix/drive_c/windows/Fonts/"
    done
    WINEPREFIX=$prefix wine reg add 'HKLM\Software\Microsoft\today\items\Quillory' /v ProgramFiles \
        /t REG_SZ /d '\Program Files' /f >/dev/null 2>&1 || ql_die "could not write the registry of $prefix"
    [ -n "$desktop" ] && ql_use_virtual_desktop "$prefix" "$desktop"
    ql_fail_crashes_fast "$prefix"
    touch "$prefix/.ql-ready"
}

# A crashing program must end at once with an error code: Wine's crash debugger would otherwise
# open its dialog and wait for a click that never comes. Without the dialog it writes the crash
# report to standard error and ends the process. Also applied to prefixes made before this
# setting existed; the registry file is read first so that a prefix that has it costs nothing.
ql_fail_crashes_fast() {
    local prefix=$1
    grep -qs '^"ShowCrashDialog"=dword:00000000' "$prefix/user.reg" && return 0
    WINEPREFIX=$prefix wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f \
        >/dev/null 2>&1 || ql_die "could not turn off the crash dialog in $prefix"
}

# Copies the program and its libraries into the prefix's device layout.
ql_install_layout() {
    local prefix=$1 dir="$1/$QL_DEVICE_DIR"
    mkdir -p "$dir/LangRes"
    cp -u "$QL_BIN/QLEngRc.dll" "$dir/LangRes/"
    cp -u "$QL_BIN/LowDpiRes.dll" "$QL_BIN/HighDpiRes.dll" "$QL_BIN/ql_options.exe" "$dir/"
}

# Starts Xvfb on a display it picks itself (no race with other servers starting at the same
# time); sets QL_XVFB_PID and exports DISPLAY.
ql_start_xvfb() {
    local size=${1:-1024x768x24} fifo number
    command -v Xvfb >/dev/null || ql_die "Xvfb missing (package xvfb)"
    fifo=$(mktemp -u)
    mkfifo "$fifo"
    Xvfb -displayfd 3 -screen 0 "$size" -nolisten tcp 3>"$fifo" >/dev/null 2>&1 &
    QL_XVFB_PID=$!
    read -r -t 20 number <"$fifo" || true
    rm -f "$fifo"
    [ -n "$number" ] && kill -0 "$QL_XVFB_PID" 2>/dev/null || ql_die "could not start Xvfb"
    export DISPLAY=":$number"
}

# Makes every window of the prefix live inside one Wine desktop window of the given size, so that
# window tests do not depend on an X window manager (there is none under Xvfb).
ql_use_virtual_desktop() {
    local prefix=$1 size=${2:-1024x768}
    WINEPREFIX=$prefix wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null 2>&1
    WINEPREFIX=$prefix wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d "$size" /f >/dev/null 2>&1
}

# Prepares what the test programs run in: a throwaway Wine prefix inside the build tree with the
# device layout installed, one wineserver kept alive for the run, and an Xvfb display of its own.
# Both are stopped when the calling script exits.
ql_test_environment() {
    local prefix=$QL_BUILD/wineprefix
    export WINEPREFIX=$prefix QL_TEST_PREFIX=$prefix
    # The display comes first: Wine's desktop process, started while the prefix is made, keeps the
    # display it was started with.
    ql_start_xvfb 1024x768x24
    trap 'wineserver -k >/dev/null 2>&1 || true; kill "$QL_XVFB_PID" 2>/dev/null || true' EXIT

    wineserver -k >/dev/null 2>&1 || true
    rm -rf "$prefix" "$QL_BUILD/.wineprefix.lock"
    ql_ensure_prefix "$prefix" 1024x768
    ql_install_layout "$prefix"
    wineserver -w
    wineserver -p >/dev/null 2>&1 || true
    # Wine's services and its desktop window stay alive as long as the server does. Started here,
    # they do not hold on to the output pipes ctest waits on; started by the first test, they would.
    wine cmd /c exit >/dev/null 2>&1 </dev/null
    wine explorer /desktop=Default,1024x768 >/dev/null 2>&1 </dev/null &
    sleep 1
}
