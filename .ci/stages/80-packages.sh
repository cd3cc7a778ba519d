# The release packages, built, checked, installed and used as a user would.
# Debian: the release build makes libzelt1, libzelt-dev and zeltcfg with
# CPack (and the API reference, which fails on an undocumented public
# declaration); lintian must report no error; the packages are installed
# with apt-get, a consumer is built against /usr through the CMake package
# and through pkg-config, zeltcfg runs from PATH on the samples, its manual
# page and completion are checked; then every package the stage installed is
# purged again. Windows: the windows build (stage 30) makes
# zelt-<version>-win64.zip, which is unpacked into a scratch folder; a
# consumer is cross-built against it through the CMake package and run under
# Wine, and so is zeltcfg.exe when the archive holds it.
set -euo pipefail
apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends cmake ninja-build g++ \
  pkg-config libjson-c-dev libgtest-dev libgmock-dev libbenchmark-dev libcli11-dev \
  python3-jsonschema doxygen lintian man-db bash-completion file dpkg-dev zip unzip \
  g++-mingw-w64-x86-64-posix wine64
export CI=${CI:-true}
version=$(sed -n 's/^#define ZELT_VERSION_STRING "\(.*\)"$/\1/p' include/zelt/Version.h)
scratch=$(mktemp -d)
installed_before=$scratch/installed-before
dpkg-query -W -f '${Package}\n' | sort >"$installed_before"

# Whatever happens, the machine keeps only the packages it had before.
purge_installed() {
  local added
  added=$(dpkg-query -W -f '${Package}\n' | sort | comm -13 "$installed_before" -)
  if [ -n "$added" ]; then
    echo "purging the packages this stage installed: $(echo $added)"
    # shellcheck disable=SC2086
    apt-get -o DPkg::Lock::Timeout=600 purge -y $added
  fi
  rm -rf "$scratch"
}
trap purge_installed EXIT

echo "== Debian packages of zelt $version"
cmake --preset release -DCMAKE_INSTALL_PREFIX=/usr -DZELT_BUILD_DOCS=ON
cmake --build --preset release
ctest --preset release -R '^(packaging\.|package\.|zeltcfg\.usage_version$)'
.ci/check-skips build/release .ci/expected-skips/80-packages.txt
rm -f build/release/*.deb
(cd build/release && cpack -G DEB)
debs=()
for package in libzelt1 libzelt-dev zeltcfg; do
  deb=$PWD/build/release/${package}_${version}_amd64.deb
  echo "-- $package: dpkg -c"
  dpkg -c "$deb"
  debs+=("$deb")
done
echo "-- lintian"
lintian --fail-on error --tag-display-limit 0 "${debs[@]}"

apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends "${debs[@]}"
test "$(command -v zeltcfg)" = /usr/bin/zeltcfg
test "$(zeltcfg --version)" = "zeltcfg $version"
cmake -S tests/package -B "$scratch/consumer" -G Ninja
cmake --build "$scratch/consumer"
(cd "$scratch/consumer" && ctest --output-on-failure)
test "$(pkg-config --modversion zelt)" = "$version"
zeltcfg check examples/full.json examples/minimal.json
for sample in examples/invalid-*.json; do
  status=0
  zeltcfg check "$sample" 2>/dev/null || status=$?
  test "$status" -eq 1 || { echo "zeltcfg check $sample exited $status, not 1" >&2; exit 1; }
done
zeltcfg show examples/full.json >/dev/null
zeltcfg get examples/full.json /ClientSetting/Communication/LogUploadInterval
zeltcfg schema | cmp - /usr/share/zelt/zelt-config.schema.json
test "$(man -w zeltcfg)" = /usr/share/man/man1/zeltcfg.1.gz
test -z "$(man --warnings -l docs/zeltcfg.1 2>&1 >/dev/null)"
bash packaging/completion-test.sh /usr/share/bash-completion/completions/zeltcfg
purge_installed
trap - EXIT
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

echo "== Windows archive of zelt $version"
cmake --preset windows
cmake --build --preset windows
rm -f build/windows/zelt-*-win64.zip
(cd build/windows && cpack -G ZIP)
archive=build/windows/zelt-$version-win64.zip
unzip -l "$archive"
unzip -q "$archive" -d "$scratch/zelt"
for file in bin/zelt.dll lib/libzelt.dll.a include/zelt/zelt.h include/zelt/Version.h \
  lib/cmake/zelt/zeltConfig.cmake lib/cmake/zelt/zeltConfigVersion.cmake share/zelt/PLXR.def \
  share/zelt/zelt-config.schema.json README.md CHANGELOG.md; do
  test -f "$scratch/zelt/$file" || { echo "the archive lacks $file" >&2; exit 1; }
done
cmake -S tests/package/windows -B "$scratch/consumer" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64-x86_64.cmake" -DCMAKE_FIND_ROOT_PATH="$scratch/zelt"
cmake --build "$scratch/consumer"
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
wineserver=$(command -v wineserver || echo /usr/lib/wine/wineserver)
export WINEDEBUG=-all WINEPREFIX=$PWD/build/windows/wine-prefix
test "$("$wine" "$scratch/consumer/run/consumer.exe" | tr -d '\r')" = "installed zelt works"
if [ -f "$scratch/zelt/bin/zeltcfg.exe" ]; then
  cp "$scratch/consumer/run/PLXR.dll" "$scratch/zelt/bin/"
  test "$("$wine" "$scratch/zelt/bin/zeltcfg.exe" --version | tr -d '\r')" = "zeltcfg $version"
  "$wine" "$scratch/zelt/bin/zeltcfg.exe" check examples/full.json examples/minimal.json
else
  echo "the archive holds no zeltcfg.exe: the windows build has no tool"
fi
"$wineserver" -k 2>/dev/null || true
