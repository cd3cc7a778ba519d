# A short run of the benchmarks in the release build, so that they always
# build and run: each job once or a few times on the generated documents of
# 0, 1,000 and 100,000 entries per list, then the peak heap of a load, then
# a short soak of whole-document cycles whose resident set must stay flat. The
# ratios to json-c are printed for reading and never checked: timings on a
# shared machine are no test. The full run is described in
# docs/performance.md.
apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends cmake ninja-build g++ \
  pkg-config libjson-c-dev libgtest-dev libgmock-dev libbenchmark-dev
cmake --preset release
cmake --build --preset release --target zelt-bench zelt-bench-memory zelt-bench-soak \
  zelt-generate-config
build/release/bench/zelt-bench --sizes=0,1000,100000 --benchmark_min_time=0.01
build/release/bench/zelt-bench-memory 0 1000 100000
build/release/bench/zelt-bench-soak 20000 2000
