# The thread stress test under ThreadSanitizer: separate managers and element
# trees in 8 threads at once. Any report of a data race stops the program and
# fails it (TSAN_OPTIONS in the tsan test preset). Only this program is built
# and run, to keep the stage short; `cmake --workflow --preset tsan` runs the
# whole suite under ThreadSanitizer.
apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends cmake ninja-build g++ \
  pkg-config libjson-c-dev libgtest-dev libgmock-dev
export CI=${CI:-true}
cmake --preset tsan
cmake --build --preset tsan --target ThreadStressTest
ctest --preset tsan --tests-regex '^ThreadStressTest\.'
.ci/check-skips build/tsan .ci/expected-skips/75-tsan.txt
