# What ./run, ./test, ./bench and scripts/lint share: packages, configuring and building. Sourced with $root
# set to the repository. Everything that is said goes to stderr, so that stdout is the program's alone.

Say() { printf '%s\n' "$*" >&2; }
Fail() { Say "error: $*"; exit 1; }

# A bare environment (no PATH, HOME, USER or locale) is enough.
export PATH="${PATH:+$PATH:}/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"
if [[ -z ${LC_ALL:-}${LC_CTYPE:-}${LANG:-} ]]; then
  export LANG=C.UTF-8
fi
if [[ ! -w ${HOME:-/nonexistent} ]]; then
  export HOME="$root/build/home"
  mkdir -p "$HOME"
fi
if [[ -e ${XDG_CACHE_HOME:-$HOME/.cache} && ! -w ${XDG_CACHE_HOME:-$HOME/.cache} ]]; then
  export CCACHE_DIR="${CCACHE_DIR:-$root/build/ccache}"
fi

# Packages GROUP...: the names listed for the groups; "optional" ones are followed by a question mark.
Packages() {
  local group package optional wanted
  while read -r group package optional; do
    for wanted in "$@"; do
      [[ $group == "$wanted" ]] && printf '%s%s\n' "$package" "${optional:+?}"
    done
  done < <(grep -v -e '^#' -e '^$' "$root/scripts/packages")
  return 0
}

# RequirePackages GROUP...: installs what is missing. Asks dpkg first, so that nothing happens when all is there.
RequirePackages() {
  command -v dpkg-query >/dev/null || return 0  # not a Debian: configuring will tell what is missing
  local -a all missing=()
  local package installed needed=no
  mapfile -t all < <(Packages "$@")
  installed=" $(dpkg-query -W -f='${db:Status-Status}:${Package} ' "${all[@]%\?}" 2>/dev/null) " || true
  for package in "${all[@]}"; do
    if [[ $installed != *" installed:${package%\?} "* ]]; then
      missing+=("${package%\?}")
      [[ $package == *\? ]] || needed=yes
    fi
  done
  ((${#missing[@]})) || return 0
  # What can be done without is tried once, not at each start on a machine without a network.
  local without="$root/build/packages.without"
  [[ $needed == yes || ! -f $without || $(<"$without") != "${missing[*]}" ]] || return 0
  local -a sudo=()
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null || ! { sudo -n true 2>/dev/null || [[ -t 0 ]]; }; then
      [[ $needed == no ]] && return 0
      Fail "packages are missing and this user may not install them: apt-get install ${missing[*]}"
    fi
    sudo=(sudo)
  fi
  Say "Installing packages: ${missing[*]}"
  local log="$root/build/packages.log"
  mkdir -p "$root/build"
  local -a apt=("${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=600)
  local -a install=("${apt[@]}" install --no-install-recommends "${missing[@]}")
  local problem=
  if ! compgen -G '/var/lib/apt/lists/*_Packages*' >/dev/null; then
    "${apt[@]}" update </dev/null >"$log" 2>&1 || problem="apt-get update failed"
  fi
  if [[ -z $problem ]] && ! "${install[@]}" </dev/null >"$log" 2>&1; then
    # Lists of long ago name packages that the archive no longer has.
    "${apt[@]}" update </dev/null >>"$log" 2>&1 || true
    "${install[@]}" </dev/null >>"$log" 2>&1 || problem="apt-get install failed"
  fi
  if [[ -n $problem && $needed == no ]]; then
    Say "Going on without: $problem; the log is $log"
    printf '%s\n' "${missing[*]}" >"$without"
  elif [[ -n $problem ]]; then
    cat "$log" >&2
    Fail "$problem"
  fi
}

# A compiler takes up to a gigabyte: no more of them than there are cores or gigabytes.
Jobs() {
  local cores memory
  cores=$(nproc)
  memory=$(awk '/^MemTotal:/ { print int($2 / 1000000) }' /proc/meminfo)
  ((memory < 1)) && memory=1
  echo "${CMAKE_BUILD_PARALLEL_LEVEL:-$((cores < memory ? cores : memory))}"
}

# RunLogged LOG COMMAND...: the output goes to LOG, which is shown without the progress lines if COMMAND fails.
RunLogged() {
  local log=$1 status=0
  shift
  "$@" >"$log" 2>&1 || status=$?
  if ((status)); then
    grep -v -E '^\[[0-9]+/[0-9]+\]' "$log" >&2 || cat "$log" >&2
  fi
  return "$status"
}

# Tells which sources are compiled as one. Without Python each is compiled by itself, which takes longer.
GroupSources() {
  local groups="$root/build/groups.cmake"
  # A folder is newer, too, when a file came or went.
  if command -v python3 >/dev/null && { [[ ! -f $groups.stamp ]] ||
      [[ -n $(find "$root"/{host,src,apps,tests,scripts} -newer "$groups.stamp" -print -quit) ]]; }; then
    touch "$groups.stamp"
    PYTHONDONTWRITEBYTECODE=1 python3 "$root/scripts/group_sources.py" "$root" "$groups"
  fi
}

# What a command builds besides the libraries and the program: TESTS, BENCHMARKS. Only with these are their packages
# asked for; a folder that was configured without them learns of them later.
parts=()

# Configure PRESET: into build/PRESET, if that was never done, the presets changed, the folder was moved or a part is
# new. Later changes of CMake files are seen by the build itself.
Configure() {
  local preset=$1 build="$root/build/$1" part
  local -a options=()
  # Each source is checked by itself.
  [[ $preset == lint ]] || options+=("-DMOX_SOURCE_GROUPS=$root/build/groups.cmake")
  if [[ -f $build/CMakeCache.txt ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$build/CMakeCache.txt"; then
    rm -rf "$build"
  fi
  for part in TESTS BENCHMARKS; do
    if [[ " ${parts[*]} " == *" $part "* ]]; then
      options+=("-DMOX_BUILD_$part=ON")
      grep -qxF "MOX_BUILD_$part:BOOL=ON" "$build/CMakeCache.txt" 2>/dev/null || rm -f "$build/configured"
    elif [[ ! -f $build/CMakeCache.txt ]]; then
      options+=("-DMOX_BUILD_$part=OFF")
    fi
  done
  if [[ ! -f $build/build.ninja || ! -f $build/configured || $root/CMakePresets.json -nt $build/configured ]]; then
    Say "Configuring build/$preset"
    mkdir -p "$build"
    (cd "$root" && RunLogged "$build/configure.log" cmake --preset "$preset" "${options[@]}") ||
      Fail "configuring failed; the log is $build/configure.log"
    touch "$build/configured"
  fi
}

# Build PRESET [TARGET...]: configures and builds. Two commands at once wait for each other.
Build() {
  local preset=$1 build="$root/build/$1" begin=$SECONDS
  shift
  mkdir -p "$build"
  # clang compiles with the sanitizers in half the time that gcc takes.
  [[ $preset != [at]san ]] || RequirePackages sanitizers
  (
    flock 9
    GroupSources
    Configure "$preset"
    Say "Building build/$preset"
    RunLogged "$build/build.log" cmake --build "$build" --parallel "$(Jobs)" ${1:+--target "$@"} 9>&- ||
      Fail "the build failed; the log is $build/build.log"
  ) 9>"$root/build/$preset.lock" || exit 1
  ((SECONDS - begin < 5)) || Say "Built in $((SECONDS - begin)) s"
}

# SanitizerOptions PRESET: what programs of a sanitizer build need around them; sets `wrapper`, to be put
# before the command.
SanitizerOptions() {
  wrapper=()
  case $1 in
    asan)
      export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_stack_use_after_return=1:strict_string_checks=1}
      export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}
      ;;
    tsan)
      export TSAN_OPTIONS=${TSAN_OPTIONS:-halt_on_error=1}
      # The shadow memory needs addresses that aren't randomised (much); a container may forbid to say so.
      if setarch -R true 2>/dev/null; then
        wrapper=(setarch -R)
      fi
      ;;
  esac
}
