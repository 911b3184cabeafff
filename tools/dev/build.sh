# Configure once, then build only what changed.

# build_preset PRESET [TARGET...]: all targets when none is named.
build_preset() {
  local preset=$1
  shift
  local targets=()
  [ $# -gt 0 ] && targets=(--target "$@")
  mkdir -p build
  [ -e "build/$preset/build.ninja" ] || cmake --preset "$preset" >"build/$preset.log" 2>&1 || {
    cat "build/$preset.log" >&2
    return 1
  }
  cmake --build "build/$preset" "${targets[@]}"
}

cmd_build() {
  cmd_setup
  if [ $# -gt 0 ]; then
    build_preset "$1"
  else
    build_preset native-asan
    build_preset native-tsan rowlark_thread_tests
    build_preset mingw-release
  fi
}
