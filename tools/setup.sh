# shellcheck shell=bash disable=SC2034
# What a Debian or Ubuntu machine needs, by job. Sourced by ./test and ./run; asks for nothing but sudo's password.
#
#   pointalk_setup GROUP...    installs what is missing of these groups, through apt, as root or with sudo, and says how
#                              far it is; `desktop`, `wine`, `tour`, `package`, `test`, `bench` and `wine32` are
#                              groups

# `a|b` is the first of the two that this system has, and `a|` is left out where the system has no a.
#
# What pointalk is built of, and what it needs on a desktop; xdotool tells whether there is one.
POINTALK_desktop=(
  cmake ninja-build g++ pkg-config nlohmann-json3-dev qt6-base-dev libx11-dev libxi-dev libsystemd-dev
  libfluidsynth-dev at-spi2-core speech-dispatcher speech-dispatcher-espeak-ng timgm6mb-soundfont xdg-utils xdotool
)
# The same for Pointalk.exe under Wine.
POINTALK_wine=(
  cmake ninja-build g++-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-win32
  wine "wine64|wine" xdotool procps
  espeak-ng fluidsynth fluid-soundfont-gm alsa-utils libasound2-plugins
)
# Virtual screens, programs to point at, and what turns into files what was heard and seen there.
POINTALK_tour=(
  "${POINTALK_desktop[@]}" "${POINTALK_wine[@]}"
  xvfb openbox x11-utils dbus-daemon gtk-3-examples qt6ct gir1.2-atspi-2.0 python3-gi
  python3 python3-pil imagemagick sox
)
POINTALK_package=(
  cmake ninja-build nsis python3 git
  g++-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-win32 g++-mingw-w64-i686-posix g++-mingw-w64-i686-win32
  g++ pkg-config nlohmann-json3-dev qt6-base-dev libx11-dev libxi-dev libsystemd-dev
  libfluidsynth-dev dpkg-dev
)
POINTALK_test=(
  "${POINTALK_tour[@]}" "${POINTALK_package[@]}" libglib2.0-bin libxext-dev gir1.2-gtk-3.0 gcc
  lintian appstream desktop-file-utils man-db
  build-essential libgtest-dev libgmock-dev googletest libbenchmark-dev
  clang "libclang-rt-dev|clang" "clang-format-14|" "clang-tidy-14|"  # the two judge by this release alone
  python3-pytest python3-pytest-xdist python3-jsonschema python3-yaml flake8 shellcheck 7zip librsvg2-bin icoutils
)
# What pointalk is measured beside, and with.
POINTALK_bench=(
  "${POINTALK_desktop[@]}" xvfb openbox x11-utils dbus-daemon gtk-3-examples qt6ct gir1.2-atspi-2.0 python3-gi python3
  orca pulseaudio pulseaudio-utils strace
)
POINTALK_wine32=(wine32:i386)

# Prints the packages of these groups that are missing, one a line.
pointalk_missing() {
  local group entry name
  local -a alternatives
  for group in "$@"; do
    local -n packages=POINTALK_$group
    for entry in "${packages[@]}"; do
      mapfile -t alternatives <<<"${entry//|/$'\n'}"
      for name in "${alternatives[@]}"; do
        if [ -z "$name" ]; then break; fi
        if [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ]; then break; fi
        if apt-cache policy "$name" 2>/dev/null | grep -q 'Candidate: [^(]' || [ "$name" = "${alternatives[-1]}" ]; then
          echo "$name"
          break
        fi
      done
    done
  done | sort -u
}

# Shows the numbered steps among the lines that it reads, on one line of a terminal, elsewhere every ten seconds: ninja's
# `[57/128] ...` and what apt says of its work, `dlstatus:N:PERCENT:...` and `pmstatus:PACKAGE:PERCENT:...`.
pointalk_progress() {
  local line shown=$SECONDS step
  while IFS= read -r line; do
    case $line in
    \[*/*\]*) step=${line#\[} step=${step%%\]*} ;;
    dlstatus:*) step=$(cut -d: -f3 <<<"$line") step="downloaded ${step%%.*} %" ;;
    pmstatus:*) step=$(cut -d: -f3 <<<"$line") step="installed ${step%%.*} %" ;;
    *) continue ;;
    esac
    if [ -t 1 ]; then
      printf '\r  %-24s' "$step"
    elif ((SECONDS - shown >= 10)); then
      printf '  %s\n' "$step"
      shown=$SECONDS
    fi
  done
  if [ -t 1 ] && [ -n "${step:-}" ]; then printf '\r  %-24s\r' ""; fi
}

# Says what is done and how long it took; the second argument is SECONDS as it was at the beginning.
pointalk_took() {
  echo "$1 ($((SECONDS - $2)) s)."
}

# Runs apt-get with these arguments, showing how far it is; what it says goes to standard error.
pointalk_apt() {
  local -a as_root=() options=(-q -y -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300 -o APT::Status-Fd=3)
  if [ "$(id -u)" -ne 0 ]; then as_root=(sudo); fi
  # shellcheck disable=SC2016  # expanded by the shell that is started
  "${as_root[@]}" sh -c 'DEBIAN_FRONTEND=noninteractive exec apt-get "$@" 3>&1 >&2' apt-get "${options[@]}" "$@" |
    pointalk_progress
  return "${PIPESTATUS[0]}"
}

pointalk_setup() {
  local number began=$SECONDS
  local -a missing
  if ! command -v apt-get >/dev/null; then
    echo "The set-up needs apt-get: a Debian or an Ubuntu." >&2
    return 1
  fi
  mapfile -t missing < <(pointalk_missing "$@")
  if [ "${#missing[@]}" -eq 0 ]; then return 0; fi
  if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
    echo "Not root, no sudo, and these packages are missing: ${missing[*]}" >&2
    return 1
  fi
  echo "Asking for the list of packages..."
  pointalk_apt update || return 1
  mapfile -t missing < <(pointalk_missing "$@")  # what this system has may have changed
  number=$(apt-get -s -q --no-install-recommends install "${missing[@]}" 2>/dev/null | grep -c '^Inst ')
  echo "Installing $number packages: ${missing[*]}, and what they need..."
  pointalk_apt --no-install-recommends install "${missing[@]}" || return 1
  pointalk_took "Installed $number packages" "$began"
}

# Adds the 32-bit packages to those that apt knows, which only who asks for a 32-bit Wine gets.
pointalk_add_i386() {
  local -a as_root=()
  if dpkg --print-foreign-architectures | grep -qx i386; then return 0; fi
  if [ "$(id -u)" -ne 0 ]; then as_root=(sudo); fi
  "${as_root[@]}" dpkg --add-architecture i386 && pointalk_apt update
}
