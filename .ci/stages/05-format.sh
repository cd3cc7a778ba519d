# Every C and C++ source as clang-format lays it out; the first stage, so that
# a formatting slip fails in seconds rather than after the builds.
apt-get -o DPkg::Lock::Timeout=600 install -y --no-install-recommends clang-format git
bash .ci/check-format
