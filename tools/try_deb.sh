#!/bin/bash
# Installs a Debian package of pointalk, starts it on a virtual screen, and removes it again.
#
#   tools/try_deb.sh [PACKAGE]     the one in packages/ unless given
#
# It changes the machine: it is meant for a bare one, as tools/try_fresh.py makes them:
#
#   sudo tools/try_fresh.py bookworm './run --package' tools/try_deb.sh
set -eu
cd "$(dirname "$(realpath "$0")")/.."
package=$(realpath "${1:-$(find packages -name '*.deb')}")
left=(/usr/bin/pointalk /usr/share/applications/pointalk.desktop /usr/share/doc/pointalk)

install() {
  sudo env DEBIAN_FRONTEND=noninteractive apt-get -q -y "$@" >/dev/null
}

install update
install install "$package"
install --no-install-recommends install xvfb openbox xdotool x11-utils dbus-daemon python3
ls "${left[@]}" >/dev/null
python3 tools/start_installed.py
install remove pointalk
for path in "${left[@]}"; do
  if [ -e "$path" ]; then
    echo "$path was left behind." >&2
    exit 1
  fi
done
echo "$(basename "$package"): installed, started and removed."
