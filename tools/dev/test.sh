# One run of CTest over all builds.

cmd_test() {
  cmd_build
  cat >build/CTestTestfile.cmake <<'END'
subdirs(native-asan native-tsan mingw-release)
END
  start_display
  local filter=()
  [ $# -gt 0 ] && filter=(-R "$1")
  ctest --test-dir build --output-on-failure -j2 --no-tests=error "${filter[@]}"
}
