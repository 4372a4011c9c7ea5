# shellcheck shell=bash
# What a Debian or Ubuntu machine needs to build, test and run Pointalk. Sourced by ./test and ./run; asks for nothing.
#
#   pointalk_setup     installs what is missing, through apt, as root or with sudo

# `a|b` is the first of the two that this system has.
POINTALK_PACKAGES=(
  build-essential cmake ninja-build git
  nlohmann-json3-dev libgtest-dev libgmock-dev googletest libbenchmark-dev
  clang "libclang-rt-dev|clang" "clang-format-14|clang-format" "clang-tidy-14|clang-tidy"
  g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix
  wine "wine64|wine" xvfb xauth xdotool procps
  espeak-ng fluidsynth fluid-soundfont-gm sox "libsox-fmt-alsa|sox" alsa-utils libasound2-plugins
  imagemagick python3 python3-pil
  nsis 7zip
)

# Prints the packages that are missing, one a line.
pointalk_missing() {
  local entry name
  local -a alternatives
  for entry in "${POINTALK_PACKAGES[@]}"; do
    IFS='|' read -r -a alternatives <<<"$entry"
    for name in "${alternatives[@]}"; do
      if [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ]; then break; fi
      if apt-cache policy "$name" 2>/dev/null | grep -q 'Candidate: [^(]' || [ "$name" = "${alternatives[-1]}" ]; then
        echo "$name"
        break
      fi
    done
  done | sort -u
}

pointalk_setup() {
  local -a missing as_root=() quietly=(-q -y -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300)
  if ! command -v apt-get >/dev/null; then
    echo "The set-up needs apt-get: a Debian or an Ubuntu." >&2
    return 1
  fi
  mapfile -t missing < <(pointalk_missing)
  if [ "${#missing[@]}" -eq 0 ]; then return 0; fi
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Not root, no sudo, and these packages are missing: ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get "${quietly[@]}" update || return 1
  mapfile -t missing < <(pointalk_missing)  # what this system has may have changed
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get "${quietly[@]}" --no-install-recommends install \
    "${missing[@]}"
}
