# Benchmarks: native ones natively, the module's own code under Wine. Each prints one line for each
# figure; none of them fails the run.

cmd_bench() {
  cmd_setup
  build_preset native-release rowlark_bench
  build_preset mingw-bench rowlark_bench
  start_wine_server
  local source name
  for source in bench/*_bench.cpp; do
    name=$(basename "$source" .cpp)
    [ -n "${1:-}" ] && [[ $name != "$1"* ]] && continue
    if [ -x "build/native-release/bench/rowlark_$name" ]; then
      echo "== $name, native"
      "build/native-release/bench/rowlark_$name" || echo "bench: $name did not finish"
    fi
    if [ -e "build/mingw-bench/bench/rowlark_$name.exe" ]; then
      echo "== $name, Windows build"
      tools/run_wine.sh "build/mingw-bench/bench/rowlark_$name.exe" </dev/null 2>/dev/null ||
        echo "bench: $name did not finish"
    fi
  done
}
