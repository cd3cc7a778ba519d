# The Release test suite under valgrind's memcheck: one valgrind run per test
# program, any memory error or leak fails it; only the library's two intended
# retentions are suppressed, by name (tests/valgrind.supp). The program that
# replaces the allocator to fail allocations is left out. The valgrind test
# preset keeps glibc off its AVX2 string functions, whose wide compare reads
# whole vectors past the end of a string and which valgrind 3.19 does not
# replace, so memcheck would report every std::wstring comparison.
apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends cmake ninja-build g++ \
  pkg-config libjson-c-dev libgtest-dev libgmock-dev valgrind
export CI=${CI:-true}
cmake --workflow --preset valgrind
.ci/check-skips build/valgrind .ci/expected-skips/60-valgrind.txt
