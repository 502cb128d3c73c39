#!/bin/bash
# SPDX-License-Identifier: MIT
# Installs the build, moves the result, and uses it there: through the CMake package, through
# pkg-config, and with the installed tool.
#
#     install_package.sh CMAKE GENERATOR CXX BUILD_FOLDER SCRATCH_FOLDER LIBDIR
set -euo pipefail
cmake=$1 generator=$2 cxx=$3 build=$4 scratch=$5 libdir=$6
consumer=$(cd "$(dirname "$0")" && pwd)/consumer
prefix=$scratch/moved

# Nothing of the build folder's or the user's may help.
unset LD_LIBRARY_PATH LD_PRELOAD CMAKE_PREFIX_PATH PKG_CONFIG_PATH

rm -rf "$scratch"
mkdir -p "$scratch"
"$cmake" --install "$build" --prefix "$scratch/installed" >"$scratch/install.log"
mv "$scratch/installed" "$prefix"

echo '-- a consumer through the CMake package'
"$cmake" -G "$generator" -S "$consumer" -B "$scratch/consumer" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_COMPILER="$cxx" >"$scratch/configure.log"
"$cmake" --build "$scratch/consumer" >"$scratch/build.log"
"$scratch/consumer/consumer"

echo '-- a consumer through pkg-config'
export PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig"
read -r -a flags <<<"$(pkg-config --cflags --libs vellomar-controlbar)"
"$cxx" -std=c++20 "$consumer/consumer.cpp" -o "$scratch/consumer-pc" "${flags[@]}" \
  -Wl,-rpath,"$prefix/$libdir"
"$scratch/consumer-pc"

echo '-- the installed tool'
"$prefix/bin/controlbar-host" play --widgets headless --out "$scratch" --quiet \
  "$prefix/share/vellomar-controlbar/scenarios/first-share.json"

if [ -x "$prefix/bin/controlbar-workbench" ]; then
  echo '-- the installed workbench and its presets'
  QT_QPA_PLATFORM=offscreen "$prefix/bin/controlbar-workbench" --preset sub-room --language de \
    --settings "$scratch/workbench.ini" --screenshot "$scratch/workbench.png"
fi

echo '-- no path of the build folder in what is installed'
if grep -rl --include='*.so' --include='*.cmake' --include='*.pc' -e "$build/lib" "$prefix"; then
  echo 'these name the build folder' >&2
  exit 1
fi
