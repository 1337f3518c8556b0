#!/usr/bin/env bash
# Prepares in build/windows-dependencies/prefix what Debian has no MinGW package for: GoogleTest, built
# from /usr/src/googletest, libsodium and pugixml, built as static libraries from Debian's own source
# packages, and the headers of CLI11 and nlohmann-json, copied from /usr/include, which as a whole would
# bring those of another C library. Needs the groups build and windows of packages.txt.
set -euo pipefail
cd "$(dirname "$0")/../.."
here=$PWD/build/windows-dependencies
state=$(cat cmake/windows/{dependencies.sh,CMakeLists.txt,toolchain.cmake} | sha256sum)
[ "$(cat "$here/done" 2>/dev/null)" = "$state" ] && exit 0
rm -rf "$here"
mkdir -p "$here"/{apt/sources,apt/lists/partial,apt/cache/archives/partial,sources}

# The machine's own list of packages may be without sources, so a private one is made from it.
for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ ! -e "$list" ] || sed -n 's/^deb /deb-src /p' "$list" >"$here/apt/sources/$(basename "$list" .list).list"
done
for list in /etc/apt/sources.list.d/*.sources; do
    [ ! -e "$list" ] || sed 's/^Types:.*/Types: deb-src/' "$list" >"$here/apt/sources/$(basename "$list")"
done
apt=(apt-get -o "Dir::Etc::SourceParts=$here/apt/sources" -o Dir::Etc::SourceList=/dev/null
    -o "Dir::State::Lists=$here/apt/lists" -o "Dir::Cache=$here/apt/cache" -o "APT::Sandbox::User=$(id -un)")
"${apt[@]}" update
(cd "$here/sources" && "${apt[@]}" source libsodium pugixml)

(
    cd "$here"/sources/libsodium-*/
    autoreconf -i
    ./configure --host=x86_64-w64-mingw32 CC=x86_64-w64-mingw32-gcc-posix --prefix="$here/prefix" \
        --disable-shared --enable-minimal CFLAGS="-O2 -fstack-protector-strong"
    make install
)
cmake -S cmake/windows -B "$here/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/windows/toolchain.cmake" -DCMAKE_INSTALL_PREFIX="$here/prefix" \
    -DCMAKE_CXX_FLAGS=-fstack-protector-strong \
    -DPUGIXML_SOURCE_DIR="$(echo "$here"/sources/pugixml-*/)"
cmake --build "$here/build" --target install
mkdir -p "$here"/prefix/{include,share/cmake}
cp -r /usr/include/{CLI,nlohmann} "$here/prefix/include/"
cp -r /usr/share/cmake/{CLI11,nlohmann_json} "$here/prefix/share/cmake/"
echo "$state" >"$here/done"
