# Configure once, then build only what changed.

build_preset() {
  local preset=$1
  [ -e "build/$preset/build.ninja" ] || cmake --preset "$preset" >"build/$preset.log" 2>&1 || {
    cat "build/$preset.log" >&2
    return 1
  }
  cmake --build "build/$preset"
}

cmd_build() {
  cmd_setup
  if [ $# -gt 0 ]; then
    build_preset "$1"
  else
    build_preset native-asan
    build_preset mingw-release
  fi
}
