# The libFuzzer targets under AddressSanitizer and UndefinedBehaviorSanitizer,
# each run for a bounded time from its seeds: the corpus kept in fuzz/corpus
# (minimized from long runs), the sample documents, the public JSON corpus and
# the inputs kept in fuzz/regressions. Any crash, leak or failed check fails
# the stage; the input is left in build/fuzz/artifacts.
apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends cmake ninja-build clang \
  libclang-rt-14-dev libjson-c-dev
corpus=../shared/data/JSONTestSuite
if [ ! -d "$corpus/test_parsing" ] || [ ! -d "$corpus/test_transform" ]; then
  echo "the public JSON corpus is missing at $corpus" >&2
  exit 1
fi
cmake --preset fuzz
cmake --build --preset fuzz
seconds=${ZELT_FUZZ_SECONDS:-45}
mkdir -p build/fuzz/artifacts build/fuzz/seeds
cp examples/*.json build/fuzz/seeds/
export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0
for target in roundtrip manager_operations string_list file_import; do
  # Every file import keeps its read buffer on purpose, so a per-input leak
  # check would stop at each one; leaks are still checked when the run ends.
  options=()
  [ "$target" = file_import ] && options=(-detect_leaks=0)
  # New inputs go to the first folder; the others are only read.
  mkdir -p "build/fuzz/corpus/$target"
  log=build/fuzz/$target.log
  status=0
  build/fuzz/fuzz/zelt_fuzz_$target "${options[@]}" -max_total_time="$seconds" \
    -print_final_stats=1 -dict="fuzz/$target.dict" \
    -artifact_prefix="build/fuzz/artifacts/$target-" "build/fuzz/corpus/$target" \
    "fuzz/corpus/$target" build/fuzz/seeds "$corpus/test_parsing" "$corpus/test_transform" \
    "fuzz/regressions/$target" >"$log" 2>&1 || status=$?
  executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  speed=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
  echo "fuzz target $target: ${executions:-?} executions, ${speed:-?} executions per second"
  if [ "$status" -ne 0 ]; then
    tail -n 60 "$log"
    echo "fuzz target $target failed; keep the input in fuzz/regressions/$target" >&2
    exit 1
  fi
done
