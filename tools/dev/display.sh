# A display of our own and the Wine server that goes with it.
#
# Wine's services keep the display they were started on. A server left over from a display that is
# gone can show no window any more, so a new display always begins with a new server, and the server
# ends before its display does.

stop_wine_server() {
  quiet_wine wineserver -k || true
}

# One server and its services for the whole session: starting them costs more than most tests.
start_wine_server() {
  quiet_wine wineserver -p900 || true
  quiet_wine wine cmd /c exit
}

stop_display() {
  stop_wine_server
  kill "$display_pid" 2>/dev/null || true
}

# Whatever display the caller has: tests move the mouse and take the focus.
start_display() {
  local number_file
  number_file=$(mktemp)
  Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$number_file" </dev/null \
    >/dev/null 2>&1 &
  display_pid=$!
  trap stop_display EXIT
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
  stop_wine_server
  start_wine_server
}

has_display() {
  [ -n "${DISPLAY:-}" ] && timeout 5 xdpyinfo >/dev/null 2>&1
}
