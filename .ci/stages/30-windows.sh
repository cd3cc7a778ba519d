# The Windows x86-64 build, zelt.dll and zeltcfg.exe, cross-built with
# mingw-w64 and tested under Wine. json-c and GoogleTest are built for the
# target from Debian's sources into a prefix inside the build tree, then the
# windows preset is configured, built and tested. CLI11 is header-only: the
# build machine's headers serve the target.
apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends cmake ninja-build \
  g++-mingw-w64-x86-64-posix wine64 dpkg-dev googletest libcli11-dev python3 python3-jsonschema

deps=build/windows-deps
prefix=$PWD/$deps/prefix
toolchain=$PWD/cmake/mingw-w64-x86_64.cmake
mkdir -p "$deps"

# json-c's source package needs a deb-src entry for the machine's own suite.
if ! apt-cache showsrc json-c 2>/dev/null | grep '^Package: json-c' >/dev/null; then
  suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
  uri=$(apt-get indextargets --format '$(REPO_URI) $(RELEASE)' 'Identifier: Packages' |
    awk -v suite="$suite" '$2 == suite { print $1; exit }')
  uri=${uri:-http://deb.debian.org/debian}
  sources=/etc/apt/sources.list.d/zelt-deb-src.sources
  printf 'Types: deb-src\nURIs: %s\nSuites: %s\nComponents: main\nSigned-By: %s\n' \
    "$uri" "$suite" /usr/share/keyrings/debian-archive-keyring.gpg >"$sources"
  apt-get update -o Dir::Etc::sourcelist="$sources" -o Dir::Etc::sourceparts=- \
    -o APT::Get::List-Cleanup=0
fi

if [ ! -f "$prefix/lib/libjson-c.a" ]; then
  rm -rf "$deps/json-c"
  mkdir -p "$deps/json-c"
  (cd "$deps/json-c" && apt-get source json-c)
  cmake -S "$(echo "$deps"/json-c/json-c-*/)" -B "$deps/json-c/build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF -DBUILD_STATIC_LIBS=ON \
    -DBUILD_TESTING=OFF -DBUILD_APPS=OFF -DDISABLE_WERROR=ON
  cmake --build "$deps/json-c/build" --target install
fi

if [ ! -f "$prefix/lib/libgtest.a" ]; then
  cmake -S /usr/src/googletest -B "$deps/googletest" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_GMOCK=OFF
  cmake --build "$deps/googletest" --target install
fi

cmake --workflow --preset windows
.ci/check-skips build/windows .ci/expected-skips/30-windows.txt
