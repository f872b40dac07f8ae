#!/usr/bin/env bash
# Every check of the program on a fresh Debian 12 machine, as root: installs
# what is needed; builds the program and its tests with warnings as errors
# and runs every test; builds the Release configuration that users install,
# packages it, installs the package and starts the installed program under
# Xvfb, runs the installed command line and a Slurm job array of the
# example's cases on a one-node cluster; builds the fuzz targets of the file readers with Clang and runs each
# for a short time on the example project's files.
set -euo pipefail
cd "$(dirname "$0")/.."
export DEBIAN_FRONTEND=noninteractive
apt-get update
apt-get install -y cmake g++ make ccache qt6-base-dev qt6-charts-dev libgtest-dev libgmock-dev \
  libbenchmark-dev locales clang libclang-rt-14-dev xvfb xauth x11-utils dpkg-dev file \
  slurm-wlm munge
localedef -i de_DE -f UTF-8 de_DE.UTF-8 || true
jobs=$(nproc)

echo "== Tests"
cmake -S . -B build -DCMAKE_BUILD_TYPE=Debug -DZELMO_WERROR=ON
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure

echo "== Release, package, installation"
cmake -S . -B build-release -DCMAKE_BUILD_TYPE=Release -DZELMO_WERROR=ON \
  -DZELMO_BUILD_TESTS=OFF -DZELMO_BUILD_BENCHMARKS=OFF
cmake --build build-release -j"$jobs"
(cd build-release && cpack -G DEB)
apt-get install -y --reinstall ./build-release/zelmo-qrn_*.deb
contrib/smoke-installed.sh

echo "== A project's cases as a job array on a one-node Slurm cluster"
contrib/slurm/selftest.sh "$(command -v zelmo)"

echo "== Fuzz targets"
cmake -S . -B build-fuzz -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DZELMO_WERROR=ON -DZELMO_FUZZ=ON -DZELMO_BUILD_TESTS=OFF -DZELMO_BUILD_BENCHMARKS=OFF
cmake --build build-fuzz -j"$jobs"
contrib/run-fuzz.sh build-fuzz/fuzz "${ZELMO_FUZZ_SECONDS:-15}"
