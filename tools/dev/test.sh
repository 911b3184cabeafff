# One run of CTest over both builds.

# A display of our own, whatever the caller has: tests move the mouse and take the focus.
start_display() {
  local number_file
  number_file=$(mktemp)
  Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$number_file" </dev/null \
    >/dev/null 2>&1 &
  display_pid=$!
  trap 'kill "$display_pid" 2>/dev/null || true' EXIT
  local tries=0
  while [ ! -s "$number_file" ]; do
    sleep 0.1
    tries=$((tries + 1))
    [ $tries -lt 100 ] || {
      echo "dev: no virtual display came up" >&2
      return 1
    }
  done
  DISPLAY=:$(cat "$number_file")
  export DISPLAY
  rm -f "$number_file"
}

cmd_test() {
  cmd_build
  cat >build/CTestTestfile.cmake <<'END'
subdirs(native-asan mingw-release)
END
  start_display
  start_wine_server
  local filter=()
  [ $# -gt 0 ] && filter=(-R "$1")
  ctest --test-dir build --output-on-failure -j2 --no-tests=error "${filter[@]}"
}
