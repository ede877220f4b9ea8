# Shared by the scripts of the project: named steps with a log each, and Debian packages. Source it with the
# project's folder as the working directory.

logs=build/logs
mkdir -p "$logs"

# step NAME COMMAND...: runs the command with its output in build/logs/NAME.log. A failing step names itself
# and its log, shows the log's end, and ends the script.
step() {
  local name=$1 started=$SECONDS
  shift
  printf '%-28s' "$name"
  # In a subshell with -e of its own: a condition would switch it off for every command inside.
  set +e
  (set -e; "$@") > "$logs/$name.log" 2>&1
  local result=$?
  set -e
  if [ $result -eq 0 ]; then
    printf 'ok    %4d s\n' $((SECONDS - started))
    return
  fi
  printf 'FAILED, see %s\n' "$logs/$name.log"
  tail -n 60 "$logs/$name.log"
  exit 1
}

# missing_packages NAME...: sets `missing` to the Debian packages among them that are not installed.
missing_packages() {
  local package
  missing=()
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
}

# require_packages NAME...: ends a script that only reads, and so installs nothing, if a package is missing.
require_packages() {
  missing_packages "$@"
  [ ${#missing[@]} -eq 0 ] && return
  echo "These packages are missing: ${missing[*]}" >&2
  exit 1
}

# need_packages NAME...: installs the packages that are missing, as root or through sudo; without either it
# names them and ends the script.
need_packages() {
  local as_root=()
  missing_packages "$@"
  [ ${#missing[@]} -eq 0 ] && return
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo > /dev/null; then
      echo "These packages are missing, and they can be installed neither as root nor by sudo: ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  step packages-index "${as_root[@]}" apt-get update
  step packages-install "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}"
}

build_packages=(cmake ninja-build g++ libboost-filesystem-dev)
check_packages=("${build_packages[@]}" bash binutils ccache clang clang-format doxygen fish gettext git groff libabsl-dev
  libbenchmark-dev libboost-program-options-dev libboost-serialization-dev libcereal-dev libclang-rt-dev libcli11-dev
  libexpat1-dev libglib2.0-dev libgmock-dev libgtest-dev libhowardhinnant-date-dev libicu-dev libpugixml-dev
  libsimdjson-dev libxml2-dev libxml2-utils llvm locales man-db pkg-config python3 zlib1g-dev zsh)
# What builds and runs the programs of other systems; tools/cross_packages needs a few more.
other_system_packages=(dpkg-dev g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix g++-multilib googletest wine wine64
  xz-utils)
