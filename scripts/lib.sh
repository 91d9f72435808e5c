# shellcheck shell=bash
# Shared functions of the scripts: messages, packages, building a preset, a virtual display. To be
# sourced, not run. Everything that is started here is stopped when the script ends for any reason.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
scratch=$(mktemp -d)
started=()

say() { printf '== %s\n' "$*"; }
die() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

# Each process is started with setsid, so its id is also that of its process group. So Ctrl-C in the
# terminal does not stop the X server before the program has ended.
stopProcess() {
  local pid=$1 deadline=$((SECONDS + 5))
  kill -TERM -- "-$pid" 2>/dev/null || kill -TERM "$pid" 2>/dev/null || return 0
  while kill -0 "$pid" 2>/dev/null && ((SECONDS < deadline)); do sleep 0.05; done
  kill -KILL -- "-$pid" 2>/dev/null || true
  wait "$pid" 2>/dev/null || true
}

# Stops in reverse order: the program, then the window manager, then the X server.
finish() {
  local i
  trap '' INT TERM HUP
  for ((i = ${#started[@]} - 1; i >= 0; i--)); do stopProcess "${started[i]}"; done
  started=()
  rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
trap 'exit 129' HUP

# Runs a command in the background and waits for it, so that a signal ends the script at once and
# not after the command. Returns the command's status.
runStep() {
  local status=0
  setsid "$@" &
  started+=("$!")
  wait "$!" || status=$?
  unset 'started[-1]'
  return "$status"
}

# await SECONDS COMMAND...: polls until the command succeeds; fails after the timeout.
await() {
  local deadline=$((SECONDS + $1))
  shift
  until "$@"; do
    ((SECONDS < deadline)) || return 1
    sleep 0.1
  done
}

# productRooms: the folders of the product, which CMakeLists.txt adds in one block.
productRooms() {
  sed -n '/^# The rooms/,/^$/s/^add_subdirectory(\(.*\))$/\1/p' "$root/CMakeLists.txt"
}

# packagesOf GROUP...: the names that packages.txt lists under these groups.
packagesOf() {
  awk -v wanted=" $* " '
    /^# group:/ { take = index(wanted, " " $3 " "); next }
    { sub(/#.*/, "") }
    take && NF { print $1 }' "$root/packages.txt"
}

isInstalled() {
  # shellcheck disable=SC2016  # the format is dpkg-query's, not the shell's
  dpkg-query -W -f='${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed
}

aptGet() {
  local asRoot=()
  ((EUID == 0)) || asRoot=(sudo)
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=120 "$@" \
    >>"$scratch/apt.log" 2>&1
}

# installMissing GROUP...: installs missing packages. The package index is updated only if needed.
installMissing() {
  local package missing=()
  if ! command -v dpkg-query >/dev/null; then
    say "Not a Debian system: nothing is installed. packages.txt says what is needed."
    return
  fi
  for package in $(packagesOf "$@"); do
    isInstalled "$package" || missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if ((EUID != 0)) && ! command -v sudo >/dev/null; then
    die "packages are missing, and installing them needs root or sudo. As root, run:" \
      "apt-get install --no-install-recommends ${missing[*]}"
  fi
  say "Installing ${missing[*]}"
  if ! aptGet -q update || ! aptGet -q install --yes --no-install-recommends "${missing[@]}"; then
    tail -n 20 "$scratch/apt.log" >&2
    die "installing the packages failed; apt-get's last lines stand above"
  fi
}

# buildPreset PRESET: configures and builds it.
buildPreset() {
  say "Building preset $1"
  runStep env -C "$root" cmake --preset "$1" || die "configuring preset $1 failed (status $?)"
  runStep env -C "$root" cmake --build --preset "$1" || die "building preset $1 failed (status $?)"
}

hasWindowManager() {
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

# Starts a virtual X server with a window manager and sets DISPLAY. OpenGL is always Mesa's software
# rasteriser, so that pictures do not depend on the machine.
startDisplay() {
  local number ready="$scratch/display-ready"
  export LIBGL_ALWAYS_SOFTWARE=1 GALLIUM_DRIVER=llvmpipe
  mkfifo "$ready"
  # The server picks a free display number and writes it to descriptor 3 once it accepts
  # connections.
  setsid Xvfb -displayfd 3 -screen 0 1600x1000x24 +extension GLX -nolisten tcp -noreset \
    3>"$ready" >"$scratch/xvfb.log" 2>&1 &
  started+=("$!")
  if ! read -t 30 -r number <"$ready"; then
    tail -n 10 "$scratch/xvfb.log" >&2
    die "the virtual display did not start; Xvfb's last lines stand above"
  fi
  export DISPLAY=":$number"
  setsid openbox --sm-disable >"$scratch/openbox.log" 2>&1 &
  started+=("$!")
  if ! await 20 hasWindowManager; then
    tail -n 10 "$scratch/openbox.log" >&2
    die "the window manager did not start; openbox's last lines stand above"
  fi
  say "Virtual display $DISPLAY, 1600 x 1000, software OpenGL"
}
