# The Debian 12 packages that ./run and ./check need, and how they get them. To be sourced.

# To build everything, tests and benchmarks included, and to run it.
BUILD_PACKAGES=(
  g++ cmake ninja-build gettext
  libgps-dev libncurses-dev libuv1-dev libunistring-dev libpugixml-dev nlohmann-json3-dev libcli11-dev
  libsqlite3-dev libsqlitecpp-dev libcurl4-openssl-dev
  qt6-base-dev qt6-declarative-dev qml6-module-qtquick qml6-module-qtquick-window
  qml6-module-qtqml-workerscript qt6-positioning-dev libqt6positioning6-plugins qt6-sensors-dev
  libxcb1-dev
  libgtest-dev libgmock-dev libbenchmark-dev python3
)

# To prove it right, besides.
CHECK_PACKAGES=(
  clang-14 clang-format-14 clang-tidy-14 libc++-14-dev libc++abi-14-dev
  gpsd gpsd-clients tmux zsh fish groff-base sqlite3
  xvfb xdotool xclip graphviz dbus-daemon
  qt6-declarative-dev-tools qml6-module-qtqml
)

# install_missing PACKAGE... installs those that are not there yet, and says which.
install_missing() {
  local package missing=() as_root=()
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
      missing+=("$package")
  done
  ((${#missing[@]})) || return 0

  echo "To be installed with apt-get: ${missing[*]}"
  if ! command -v apt-get >/dev/null; then
    echo "There is no apt-get here. The names above are Debian 12's: install their likes." >&2
    return 1
  fi
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "That takes root or sudo. As root: apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  step "Reading package lists" "${as_root[@]}" apt-get update
  step "Installing" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install --yes --no-install-recommends "${missing[@]}"
}
