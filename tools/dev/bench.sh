# Benchmarks: native ones natively, the module's own code under Wine.

cmd_bench() {
  cmd_setup
  build_preset native-release
  build_preset mingw-bench
}
