#!/usr/bin/env bash
# Installs what the project needs to build and test, from Debian's packages, when it is missing.
set -euo pipefail

need=()
command -v cmake >/dev/null 2>&1 || need+=(cmake)
command -v ninja >/dev/null 2>&1 || need+=(ninja-build)
command -v g++ >/dev/null 2>&1 || need+=(g++)
[ -f /usr/include/gtest/gtest.h ] || need+=(libgtest-dev)
[ -f /usr/include/gmock/gmock.h ] || need+=(libgmock-dev)
[ -f /usr/include/benchmark/benchmark.h ] || need+=(libbenchmark-dev)
command -v pkg-config >/dev/null 2>&1 || need+=(pkg-config)
command -v clang-format >/dev/null 2>&1 || need+=(clang-format)
command -v clang-tidy >/dev/null 2>&1 || need+=(clang-tidy)
# A compiler cache, which the build uses when it is there: other build folders and clones share its hits.
command -v ccache >/dev/null 2>&1 || need+=(ccache)
# CERTI, one of the RTIs the scenario tests run on, needs the RPC library at run time.
dpkg -s libtirpc3 >/dev/null 2>&1 || need+=(libtirpc3)
# The viewer emulator's pictures (Cairo: SVG and PNG from one drawing routine) and snapshot (nlohmann-json).
[ -f /usr/include/cairo/cairo-svg.h ] || need+=(libcairo2-dev)
[ -f /usr/include/nlohmann/json.hpp ] || need+=(nlohmann-json3-dev)
# The emulator's live view: its HTTP server (cpp-httplib), and headless Chromium with Python for the browser
# test (ctest -L browser). Chromium is large (about 290 MB installed); the test skips where it is missing.
[ -f /usr/include/httplib.h ] || need+=(libcpp-httplib-dev)
command -v chromium >/dev/null 2>&1 || need+=(chromium)
command -v python3 >/dev/null 2>&1 || need+=(python3)
# The Python module (pybind11, built for the system's Python) and its tests.
[ -f /usr/include/pybind11/pybind11.h ] || need+=(pybind11-dev)
ls /usr/include/python3*/Python.h >/dev/null 2>&1 || need+=(python3-dev)
/usr/bin/python3 -c 'import pytest' >/dev/null 2>&1 || need+=(python3-pytest)
# The API reference (the docs target): Doxygen, and Graphviz's dot for its class diagrams.
command -v doxygen >/dev/null 2>&1 || need+=(doxygen)
command -v dot >/dev/null 2>&1 || need+=(graphviz)
# The DIS capture test: tshark captures the demo's datagrams and reads them back with its own DIS dissector.
command -v tshark >/dev/null 2>&1 || need+=(tshark)
# The traffic inspector reads packet captures (pcap and pcapng) through libpcap.
[ -f /usr/include/pcap/pcap.h ] || need+=(libpcap-dev)

if [ ${#need[@]} -gt 0 ]; then
  echo "installing: ${need[*]}"
  sudo_cmd=""
  [ "$(id -u)" -eq 0 ] || sudo_cmd="sudo"
  export DEBIAN_FRONTEND=noninteractive
  # tshark's package asks whether users other than root may capture: no.
  echo "wireshark-common wireshark-common/install-setuid boolean false" | $sudo_cmd debconf-set-selections
  $sudo_cmd apt-get update -qq
  $sudo_cmd apt-get install -y -qq --no-install-recommends "${need[@]}"
fi
