# Packages and the Wine prefix: everything a fresh machine lacks.

# What it takes to build the module and open a file in it.
readonly view_packages=(
  ccache cmake ninja-build g++ git
  g++-mingw-w64-x86-64-posix googletest wine wine64 fonts-wine xvfb xauth x11-utils
  fonts-liberation fonts-dejavu-core fonts-open-sans fonts-inconsolata
)
# What it takes to work on it: tests, fuzzers, lint and benchmarks besides.
readonly packages=(
  "${view_packages[@]}"
  python3 imagemagick libbenchmark-dev
  clang-16 libclang-rt-16-dev clang-tidy-16 clang-format-16
  rapidjson-dev librapidxml-dev libfccp-dev libcsv-dev libexpat1-dev
)

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs those of the packages that are missing; all of ours without arguments.
install_packages() {
  [ $# -gt 0 ] || set -- "${packages[@]}"
  local missing=()
  local package
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "setup: installing ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
}

# Runs a Wine command that must end by itself. Its services inherit every open stream and outlive
# it; whoever waits for the end of such a pipe, CTest among them, would wait as long as they live.
quiet_wine() {
  timeout 120 "$@" </dev/null >/dev/null 2>&1 3>&-
}

# make_wine_prefix NAME FILE...: a prefix in build/NAME with the settings of the files. The mark
# holds what it was made with: when that changes, it is read again.
make_wine_prefix() {
  local prefix=$PWD/build/$1 mark=build/$1/rowlark-ready file
  shift
  cat "$@" | cmp -s - "$mark" && return 0
  mkdir -p build
  echo "setup: making the Wine prefix in $prefix"
  (
    export WINEPREFIX=$prefix DISPLAY=''
    # Neither Mono nor Gecko: they ask to be downloaded and nothing here needs them.
    WINEDLLOVERRIDES="mscoree,mshtml=" quiet_wine wineboot -u || true
    for file in "$@"; do
      quiet_wine wine regedit "$file"
    done
    # Ended rather than waited for: an older server may have been told to stay.
    quiet_wine wineserver -k || true
  )
  # The signs on window buttons; Wine does not look for this font where Debian puts it.
  cp /usr/share/wine/fonts/marlett.ttf "$prefix/drive_c/windows/Fonts/"
  # A drive of the project's own: pictures show the same paths wherever it lies.
  ln -sfn ../../.. "$prefix/dosdevices/r:"
  cat "$@" >"$mark"
}

# For tests and screenshots, on displays of their own.
make_test_prefix() {
  make_wine_prefix wine tools/dev/prefix.reg tools/dev/prefix-headless.reg
}

# For windows on the user's screen: they live on while tests run.
make_screen_prefix() {
  make_wine_prefix wine-screen tools/dev/prefix.reg
}

cmd_setup() {
  install_packages
  make_test_prefix
}
