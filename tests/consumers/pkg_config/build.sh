#!/usr/bin/env bash
# build.sh PROGRAM: with nothing but the compiler and pkg-config.
set -eu
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
read -ra flags <<<"$(pkg-config --cflags --libs zor)"
"${CXX:-c++}" -std=c++20 "$here/../hello.cpp" "${flags[@]}" -o "$1"
