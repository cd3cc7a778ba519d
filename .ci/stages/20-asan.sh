# The same suites under AddressSanitizer and UndefinedBehaviorSanitizer.
cmake --workflow --preset asan
