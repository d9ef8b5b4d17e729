# Sourced by ./run, ./test and .ci/run: installs what is missing, configures and builds.
# shellcheck shell=bash

# What the program and its tools need to build and run.
kProgramPackages=(
  g++ cmake ninja-build
  qt6-base-dev qt6-svg-dev
  libcurl4-openssl-dev zlib1g-dev ca-certificates
  libxcb1-dev # the X11 tray
  libcpp-httplib-dev # the demo host
)
# What the tests need in addition.
kTestPackages=(
  libgtest-dev libssl-dev
  # A desktop for each test that uses the program as a person does.
  xvfb openbox trayer dbus-daemon xdotool x11-utils
  libsm-dev libice-dev # its session manager
)
# What the checks after the tests need in addition.
kCheckPackages=(
  libbenchmark-dev clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 binutils codespell
)

Say() { printf '== %s\n' "$*"; }
Fail() {
  printf '%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# Prints which of its arguments are packages that are not installed.
MissingPackages() {
  local installed package
  # dpkg-query fails if it does not know one of the names, but still lists the others.
  installed=$(dpkg-query --show --showformat='${db:Status-Abbrev} ${Package}\n' "$@" 2>/dev/null || true)
  for package in "$@"; do
    grep --quiet --line-regexp --fixed-strings "ii  $package" <<<"$installed" || printf '%s\n' "$package"
  done
}

# Runs a command as root.
AsRoot() {
  if [[ $EUID -eq 0 ]]; then
    "$@"
  elif [[ -t 0 ]]; then
    sudo "$@" # may ask for the password
  else
    sudo --non-interactive "$@"
  fi
}

# Nothing can be installed on another system; the build goes on with what is there.
NeedToolsOnly() {
  local tool missing=()
  for tool in c++ cmake ninja; do
    command -v "$tool" >/dev/null || missing+=("$tool")
  done
  if ((${#missing[@]})); then
    Fail "this is no Debian system, and these programs are missing: ${missing[*]}." \
      "Install what these Debian packages hold: $*"
  fi
  Say "No Debian system: going on with what is installed. The Debian packages would be: $*"
}

# Installs those of its arguments that are missing. If none is, it is silent and does not use the
# network.
NeedPackages() {
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    NeedToolsOnly "$@"
    return
  fi
  local missing
  mapfile -t missing < <(MissingPackages "$@")
  ((${#missing[@]})) || return 0

  if [[ $EUID -ne 0 ]] && ! command -v sudo >/dev/null; then
    Fail "these packages are missing, and there is no sudo to install them." \
      "As root: apt-get install ${missing[*]}"
  fi
  Say "Installing ${missing[*]}"
  AsRoot apt-get update --quiet ||
    Fail "apt-get update failed. These packages are missing: ${missing[*]}"
  AsRoot env DEBIAN_FRONTEND=noninteractive apt-get install --quiet --yes \
    --no-install-recommends "${missing[@]}" ||
    Fail "apt-get install failed. These packages are missing: ${missing[*]}"
}

# Configures and builds a preset. Shows the log of the configuration only if that fails.
ConfigureAndBuild() {
  local preset=$1 log
  log=$(mktemp)
  Say "Configuring '$preset'"
  if ! cmake --preset "$preset" >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    Fail "configuring '$preset' failed"
  fi
  rm -f "$log"
  Say "Building '$preset'"
  cmake --build --preset "$preset" || Fail "building '$preset' failed"
}

# Runs the tests of a preset and adds the results to the caller's `passed` and `failed`.
# A run without tests counts as failed.
RunTests() {
  local preset=$1 log result=0 total=0 bad=0 line
  log=$(mktemp)
  Say "Testing '$preset'"
  QT_QPA_PLATFORM=offscreen ctest --preset "$preset" </dev/null 2>&1 | tee "$log" || result=1
  line=$(grep --extended-regexp '[0-9]+ tests? failed out of [0-9]+' "$log" || true)
  rm -f "$log"
  if [[ $line =~ ([0-9]+)\ tests?\ failed\ out\ of\ ([0-9]+) ]]; then
    bad=${BASH_REMATCH[1]}
    total=${BASH_REMATCH[2]}
  fi
  # If ctest fails without a failed case, that is one more failure.
  if ((total == 0 || (result != 0 && bad == 0))); then
    bad=$((bad + 1))
    total=$((total + 1))
  fi
  passed=$((passed + total - bad))
  failed=$((failed + bad))
  ((bad == 0))
}
