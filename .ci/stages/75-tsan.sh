# The suites under ThreadSanitizer, among them the stress test of separate
# managers and element trees in 8 threads at once. Any report of a data race
# stops the test program and fails it (TSAN_OPTIONS in the tsan test preset).
apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends cmake ninja-build g++ \
  pkg-config libjson-c-dev libgtest-dev libgmock-dev
export CI=${CI:-true}
cmake --workflow --preset tsan
.ci/check-skips build/tsan .ci/expected-skips/75-tsan.txt
