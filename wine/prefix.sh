#!/bin/sh
# Wine prefixes for Pointalk.
#
#   prefix.sh make PREFIX              a 64-bit prefix with one virtual desktop of 1024 x 768, no crash dialog,
#                                      and no services for networks and devices, which take a third of the time
#                                      that a desktop takes to begin; done once, a ready one is left alone
#   prefix.sh copy READY PREFIX        a copy of a ready prefix, which nothing may be using; PREFIX must not exist
#   prefix.sh engines PREFIX WHICH DLL which speech engines are there: sapi5, sapi4, both or none; DLL is the
#                                      built pointalk_voice.dll, which is copied into the prefix; programs of its
#                                      width, 64 or 32 bits, find them
#   prefix.sh automation PREFIX DLL    has programs of the width of DLL, the built pointalk_automation.dll, find it in
#                                      place of Wine's own client for UI Automation
#
# No display is needed. Programs are to be started with
# WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe,winemenubuilder.exe=;winmm=n,b": the last of the four that are left out would put
# entries into the menus and file types of the desktop.
set -eu

usage() {
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
}

in_prefix() {
  env -u DISPLAY WINEPREFIX="$prefix" WINEARCH=win64 WINEDEBUG=-all \
    WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe,winemenubuilder.exe=" "$@" </dev/null
}

# The Wine server kills a program that takes over a second to leave once it has done its work (137 by then).
wine_for() {
  limit=$1
  shift
  in_prefix timeout "$limit" wine "$@" >/dev/null 2>&1 || [ $? = 137 ] || { echo "wine $* failed" >&2; exit 1; }
}

make_prefix() {
  mark=$prefix/pointalk-ready
  version=$(wine --version 2>/dev/null)
  [ "$(cat "$mark" 2>/dev/null)" != "$version" ] || return 0
  mkdir -p "$prefix"
  wine_for 180 wineboot -i
  in_prefix wineserver -w
  desktop_keys | import 64
  in_prefix wineserver -k || true
  in_prefix wineserver -w
  echo "$version" >"$mark"
}

desktop_keys() {
  cat <<'REG'
[HKEY_CURRENT_USER\Software\Wine\Explorer]
"Desktop"="Default"

[HKEY_CURRENT_USER\Software\Wine\Explorer\Desktops]
"Default"="1024x768"

REG
  for service in Eventlog NDIS nsiproxy PlugPlay; do
    printf '[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\%s]\n"Start"=dword:00000004\n\n' "$service"
  done
  # The drivers of these devices begin with every desktop, whatever their services say, and go on asking for joysticks.
  printf '%s\n' '[-HKEY_LOCAL_MACHINE\System\CurrentControlSet\Enum\ROOT]'
}

# Into the registry as programs of that width, 64 or 32 bits, see it.
import() {
  keys=$prefix/pointalk.reg
  { printf 'REGEDIT4\n\n'; cat; } | sed 's/$/\r/' >"$keys"
  wine_for 60 reg import "$(windows_path "$keys")" "/reg:$1"
  rm "$keys"
}

windows_path() {
  case $1 in
  /*) path=$1 ;;
  *) path=$PWD/$1 ;;
  esac
  printf 'Z:%s' "$path" | tr / '\134'  # a backslash
}

sapi5='{96749377-3391-11D2-9EE3-00C04F797396}'
sapi4='{EEE78591-FE22-11D0-8BEF-0060081841DE}'
automation='{FF48DBA4-60EF-4201-AA87-54103EEF594E}'

# Wine's own class of that identifier, whose objects answer few calls, goes as well when there is to be none. A file that is
# imported takes keys away as programs of reg's own width see them, which on a system with both widths is 32 bits.
forget_class() {
  key="HKLM\\Software\\Classes\\CLSID\\$1"
  in_prefix timeout 60 wine reg query "$key" "/reg:$bits" >/dev/null 2>&1 || return 0
  wine_for 60 reg delete "$key" /f "/reg:$bits"
}

class_keys() {
  printf '[HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\%s]\n@="Pointalk"\n\n' "$1"
  printf '[HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\%s\\InprocServer32]\n' "$1"
  printf '@="C:\\\\windows\\\\system32\\\\%s"\n"ThreadingModel"="%s"\n\n' "$2" "$3"
}

# Copies a library to where programs of its width look for it.
bring() {
  bits=$(bits_of "$1")
  case $bits in
  64) system=$prefix/drive_c/windows/system32 ;;
  32) system=$prefix/drive_c/windows/syswow64 ;;
  esac
  [ -e "$system/kernel32.dll" ] || { echo "$prefix was made by a Wine without $bits bits" >&2; exit 1; }
  rm -f "$system/${1##*/}"
  cp "$1" "$system/"
}

set_engines() {
  case $1 in
  sapi5) five=present four=absent ;;
  sapi4) five=absent four=present ;;
  both) five=present four=present ;;
  none) five=absent four=absent ;;
  *) usage ;;
  esac
  bring "$2"
  forget_class "$sapi5"
  forget_class "$sapi4"
  { [ "$five" = absent ] || class_keys "$sapi5" pointalk_voice.dll Apartment
    [ "$four" = absent ] || class_keys "$sapi4" pointalk_voice.dll Apartment; } | import "$bits"
}

set_automation() {
  bring "$1"
  forget_class "$automation"
  class_keys "$automation" pointalk_automation.dll Both | import "$bits"
}

# The machine that a library for Windows is for, at the place that its first header names.
bits_of() {
  header=$(od -An -tu4 -j60 -N4 "$1")
  [ "$(od -An -tx2 -j$((header + 4)) -N2 "$1")" = ' 014c' ] && echo 32 || echo 64
}

# What the system brings along is shared with the ready prefix by hard links, where one file system has both: nobody writes
# there, and it is nearly all of a prefix.
copy_prefix() {
  if cp -al "$1" "$2" 2>/dev/null; then
    own=$(realpath "$2")
    (cd "$1" && find . -type f ! -path '*/drive_c/windows/sys*' ! -path '*/drive_c/windows/winsxs/*' \
      -exec cp -a --parents --remove-destination -t "$own" {} +)
  else
    rm -rf "$2"
    cp -a --reflink=auto "$1" "$2"
  fi
}

case ${1:-} in
make)
  [ $# = 2 ] || usage
  prefix=$(realpath -m "$2")
  make_prefix
  ;;
copy)
  [ $# = 3 ] || usage
  [ ! -e "$3" ] || { echo "$3 is already there" >&2; exit 1; }
  copy_prefix "$2" "$3"
  ;;
engines)
  [ $# = 4 ] || usage
  prefix=$(realpath -m "$2")
  set_engines "$3" "$4"
  ;;
automation)
  [ $# = 3 ] || usage
  prefix=$(realpath -m "$2")
  set_automation "$3"
  ;;
*) usage ;;
esac
