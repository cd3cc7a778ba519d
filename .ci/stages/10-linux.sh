# The GoogleTest suites through CTest in a Debug build.
apt-get install -y --no-install-recommends cmake ninja-build g++ pkg-config libjson-c-dev \
  libgtest-dev libgmock-dev libbenchmark-dev libcli11-dev python3-jsonschema
cmake --workflow --preset default
.ci/check-skips build/default .ci/expected-skips/10-linux.txt
