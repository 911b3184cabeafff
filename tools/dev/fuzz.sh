# libFuzzer, each target for the same time, from its seeds.

cmd_fuzz() {
  local seconds=${1:-}
  [ -n "$seconds" ] || {
    echo "usage: ./dev fuzz SECONDS [NAME]   run each fuzzer, or one, for that long" >&2
    return 2
  }
  install_packages
  mkdir -p build
  build_preset native-fuzz
  local source name dictionary
  for source in fuzz/*_fuzz.cpp; do
    name=$(basename "$source" .cpp)
    [ -n "${2:-}" ] && [ "$name" != "$2" ] && [ "$name" != "$2_fuzz" ] && continue
    mkdir -p "build/fuzz/$name" "fuzz/seeds/${name%_fuzz}"
    dictionary=()
    [ -e "fuzz/${name%_fuzz}.dict" ] && dictionary=(-dict="fuzz/${name%_fuzz}.dict")
    echo "fuzz: $name for $seconds s"
    "build/native-fuzz/fuzz/rowlark_$name" -max_total_time="$seconds" -print_final_stats=1 \
      -verbosity=0 -timeout=10 -artifact_prefix=build/fuzz/ "${dictionary[@]}" \
      "build/fuzz/$name" "fuzz/seeds/${name%_fuzz}" >"build/fuzz/$name.log" 2>&1 || {
      tail -n 60 "build/fuzz/$name.log"
      return 1
    }
    grep number_of_executed_units "build/fuzz/$name.log"
  done
}
