# Packages and the Wine prefix: everything a fresh machine lacks.

readonly packages=(
  ccache cmake ninja-build g++ git python3
  g++-mingw-w64-x86-64-posix wine wine64 xvfb xauth x11-utils imagemagick
  googletest libbenchmark-dev
  clang-16 libclang-rt-16-dev clang-tidy-16 clang-format-16
  fonts-liberation fonts-dejavu-core fonts-open-sans fonts-inconsolata
  rapidjson-dev librapidxml-dev libfccp-dev libcsv-dev libexpat1-dev
)

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

install_packages() {
  local missing=()
  local package
  for package in "${packages[@]}"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "setup: installing ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
}

# One server and its services for the whole session: starting them costs more than most tests.
# Every stream is closed, because they inherit open pipes: whoever waits for the end of such a pipe,
# CTest among them, would wait as long as they live.
start_wine_server() {
  wineserver -p900 </dev/null >/dev/null 2>&1 3>&- || true
  wine cmd /c exit </dev/null >/dev/null 2>&1 3>&-
}

make_wine_prefix() {
  mkdir -p build
  if [ ! -e build/wine/rowlark-ready ]; then
    echo "setup: making the Wine prefix in build/wine"
    # Neither Mono nor Gecko: they ask to be downloaded and nothing here needs them.
    WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY='' wineboot -u </dev/null >/dev/null 2>&1
    DISPLAY='' wine regedit "$(winepath -w tools/dev/fonts.reg)" </dev/null >/dev/null 2>&1
    wineserver -w
    touch build/wine/rowlark-ready
  fi
}

cmd_setup() {
  install_packages
  make_wine_prefix
}
