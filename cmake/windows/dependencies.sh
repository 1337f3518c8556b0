#!/usr/bin/env bash
# Prepares in build/windows-dependencies what Debian has no MinGW package for: GoogleTest, built from
# /usr/src/googletest, and pugixml, built from the sources in the package libopenimageio-dev, which is
# unpacked and not installed.
set -euo pipefail
cd "$(dirname "$0")/../.."
here=build/windows-dependencies
[ -e $here/done ] && exit 0
mkdir -p $here/packages
(
    cd $here/packages
    ls libopenimageio-dev_*.deb >/dev/null 2>&1 || apt-get download libopenimageio-dev
)
dpkg -x $here/packages/libopenimageio-dev_*.deb $here/openimageio
cmake -S cmake/windows -B $here/build -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/windows/toolchain.cmake" \
    -DCMAKE_INSTALL_PREFIX="$PWD/$here/prefix" \
    -DPUGIXML_SOURCE_DIR="$PWD/$here/openimageio/usr/include"
cmake --build $here/build --target install
touch $here/done
