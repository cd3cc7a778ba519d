# The same suites under AddressSanitizer and UndefinedBehaviorSanitizer.
cmake --workflow --preset asan
.ci/check-skips build/asan .ci/expected-skips/20-asan.txt
