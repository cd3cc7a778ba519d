# Line and branch coverage of the library (diagnostics/, manager/ and
# config/) over the whole test suite, measured with gcov and reported by
# gcovr. Branches that only the compiler's exception handling makes are left
# out of the figures.
apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends cmake ninja-build g++ \
  pkg-config libjson-c-dev libgtest-dev libgmock-dev gcovr
export CI=${CI:-true}
find build/coverage -name '*.gcda' -delete 2>/dev/null || true
cmake --workflow --preset coverage
.ci/check-skips build/coverage .ci/expected-skips/50-coverage.txt
gcovr --root . --filter 'diagnostics/' --filter 'manager/' --filter 'config/' \
  --exclude-throw-branches --exclude-unreachable-branches --print-summary \
  --txt build/coverage/coverage.txt \
  --fail-under-line 95 --fail-under-branch 90 \
  build/coverage
